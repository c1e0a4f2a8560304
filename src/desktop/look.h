#pragma once
// How the desktop program looks on every machine: its style, its light colours and its fonts.

class QApplication;

/// To be called once, before the first widget is made.
void SetLook(QApplication& application);

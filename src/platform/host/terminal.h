#pragma once

/// True if what is written to standard error appears on a terminal, where a line can be written over.
bool IsErrorTerminal();

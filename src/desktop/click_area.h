#pragma once
// A label without a text over something that is painted: for assistive tools a button with a name and an action.

#include <QLabel>

#include <functional>

class ClickArea final : public QLabel {
public:
    using QLabel::QLabel;
    std::function<void()> press; ///< what the action does
};

/// Lets assistive tools see click areas as what they are. Once, with an application object.
void RegisterClickAreas();

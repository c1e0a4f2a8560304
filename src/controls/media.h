#pragma once
// A browser that shows a page from a file, and a player of videos.

#include "controls/control.h"

class WebBrowser final : public Control {
public:
    WebBrowser(Form& form, Control& container, char const* name, Bounds bounds);

    char const* Kind() const override { return "WebBrowser"; }
    bool CanFocus() const override { return true; }
    /// Loads and shows the page at a file address ("file://" and a path in Windows form).
    void Navigate(TextView url);

    Property<::Text> Url;
};

class WindowsMediaPlayer final : public Control {
public:
    WindowsMediaPlayer(Form& form, Control& container, char const* name, Bounds bounds);

    char const* Kind() const override { return "WindowsMediaPlayer"; }
    bool CanFocus() const override { return true; }
    /// Plays from the current position.
    void Play();

    Property<::Text> URL;
    Property<bool> autoStart;
    Property<int> playCount;
    Property<float> rate;
    Property<int> volume; ///< 0 to 100
    Property<bool> mute;
    Property<::Text> uiMode;
    Property<bool> stretchToFit, fullScreen, enableContextMenu, enableErrorDialogs;
    Property<float> currentPosition; ///< seconds
    Property<bool> playing;
};

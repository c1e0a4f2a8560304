#include "controls/media.h"

#include "controls/screen.h"

WebBrowser::WebBrowser(Form& form, Control& container, char const* name, Bounds bounds)
    : Control(form, container, name, bounds)
    , Url(*this, "Url")
{
}

void WebBrowser::Navigate(TextView url)
{
    Url = ::Text(url);
    ParentForm().GetScreen().GetHost().Navigate(*this, url);
}

WindowsMediaPlayer::WindowsMediaPlayer(
    Form& form, Control& container, char const* name, Bounds bounds)
    : Control(form, container, name, bounds)
    , URL(*this, "URL")
    , autoStart(*this, "autoStart", true)
    , playCount(*this, "playCount", 1)
    , rate(*this, "rate", 1)
    , volume(*this, "volume", 50)
    , mute(*this, "mute", false)
    , uiMode(*this, "uiMode", u"full")
    , stretchToFit(*this, "stretchToFit", false)
    , fullScreen(*this, "fullScreen", false)
    , enableContextMenu(*this, "enableContextMenu", true)
    , enableErrorDialogs(*this, "enableErrorDialogs", false)
    , currentPosition(*this, "currentPosition", 0)
    , playing(*this, "playing", false)
{
}

void WindowsMediaPlayer::Play()
{
    playing = true;
}

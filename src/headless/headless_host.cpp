#include "headless/headless_host.h"

#include "base/code_page.h"
#include "controls/media.h"
#include "controls/screen.h"
#include "headless/text_measure.h"
#include "platform/jpeg.h"

#include <utility>

HeadlessHost::HeadlessHost(FileSystem const& files, Size screenPixels)
    : m_files(files)
    , m_screen { screenPixels.width * 15, screenPixels.height * 15 }
{
}

std::vector<HeadlessHost::Message> HeadlessHost::TakeMessages()
{
    return std::exchange(m_messages, {});
}

void HeadlessHost::Assigned(Control& control, PropertyBase const& property)
{
    if (onAssigned)
        onAssigned(control, property);
}

void HeadlessHost::RunModal(Form& form)
{
    if (serveModal)
        serveModal(form);
    else
        Unload(form);
}

void HeadlessHost::MessageBox(TextView text, TextView title)
{
    m_messages.push_back({ Text(text), Text(title) });
}

Size HeadlessHost::MeasureText(Font const& font, TextView text, float wrapWidth) const
{
    return MeasureFixed(font, text, wrapWidth);
}

std::optional<Size> HeadlessHost::PictureSize(TextView picture)
{
    auto const file = m_files.ReadAll(picture);
    auto const head = file ? JpegHeadOf(*file) : std::nullopt;
    if (!head || !IsBearable(*head))
        return std::nullopt;
    return Size { static_cast<float>(head->width), static_cast<float>(head->height) };
}

void HeadlessHost::Navigate(WebBrowser& browser, TextView url)
{
    constexpr TextView scheme = u"file://";
    auto const page = m_files.ReadAll(url.starts_with(scheme) ? url.substr(scheme.size()) : url);
    m_html[&browser] = page ? FromCodePage(*page) : Text();
}

void HeadlessHost::TurnDue()
{
    if (onTurn)
        onTurn();
}

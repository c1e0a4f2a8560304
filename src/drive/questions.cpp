#include "controls/media.h"
#include "controls/menu.h"
#include "controls/rich_text_box.h"
#include "drive/commands.h"

#include <utility>

static Json Forms(Machine& machine, Arguments const&)
{
    Json forms = Json::array();
    for (Form const* form : machine.screen.Loaded())
        forms.push_back({ { "name", form->Name() }, { "caption", ToJson(form->Caption()) },
            { "visible", form->Visible() }, { "modal", form->IsModal() },
            { "active", machine.screen.Active() == form },
            { "windowState", static_cast<int>(form->WindowState()) } });
    return { { "forms", forms } };
}

static Json Get(Machine&, Arguments const& arguments)
{
    return { { "value", ToJson(arguments.PropertyAt(0).Get()) } };
}

static Json TextSize(Machine& machine, Arguments const&)
{
    return { { "percent", machine.screen.TextSize() } };
}

static Json Watch(Machine& machine, Arguments const& arguments)
{
    machine.watched.insert(&arguments.PropertyAt(0));
    return Json::object();
}

static Json Changes(Machine& machine, Arguments const&)
{
    return { { "changes", std::exchange(machine.changes, {}) } };
}

static Json Menus(Machine&, Arguments const& arguments)
{
    Json menus = Json::array();
    for (Menu const* menu : arguments.FormAt(0).Menus()) {
        Json entries = Json::array();
        for (MenuEntry const* entry : menu->Entries())
            entries.push_back({ { "name", entry->Name() }, { "caption", ToJson(entry->Caption()) },
                { "shortcut", ToJson(entry->Shortcut()) }, { "enabled", entry->Enabled() } });
        menus.push_back({ { "name", menu->Name() }, { "caption", ToJson(menu->Caption()) },
            { "entries", entries } });
    }
    return { { "menus", menus } };
}

static Json Dump(Machine&, Arguments const& arguments)
{
    Form const& form = arguments.FormAt(0);
    Json controls = Json::object();
    for (Control const* control : form.Controls()) {
        Json entry { { "kind", control->Kind() }, { "container", control->Container()->Name() } };
        entry.update(PropertiesOf(*control));
        controls[control->Name()] = std::move(entry);
    }
    return { { "form", PropertiesOf(form) }, { "controls", controls },
        { "focus", form.Focus() ? form.Focus()->Name() : "" } };
}

static Json ImageOf(NodeImage const& image)
{
    if (auto const* index = std::get_if<int>(&image))
        return *index;
    return std::get<char const*>(image);
}

static Json Tree(Machine&, Arguments const& arguments)
{
    auto const& tree = arguments.ControlOf<TreeView>(0);
    Json nodes = Json::array();
    for (Node const& node : tree.Nodes())
        nodes.push_back({ { "key", ToJson(node.Key()) },
            { "parent", node.Parent() ? ToJson(node.Parent()->Key()) : "" },
            { "text", ToJson(node.Caption()) }, { "image", ImageOf(node.Image()) },
            { "selectedImage", ImageOf(node.SelectedImage()) }, { "bold", node.Bold() },
            { "expanded", node.Expanded() }, { "selected", tree.Selected() == &node },
            { "backColor", node.BackColor() }, { "tag", ToJson(node.Tag()) } });
    return { { "nodes", nodes } };
}

static Json Tip(Machine&, Arguments const& arguments)
{
    Node const& node = arguments.NodeAt(0);
    return { { "text", ToJson(arguments.ControlOf<TreeView>(0).ToolTipOf(node)) } };
}

static Json Rich(Machine&, Arguments const& arguments)
{
    auto const& box = arguments.ControlOf<RichTextBox>(0);
    Json runs = Json::array();
    for (std::size_t i = 0; i < box.Runs().size(); ++i) {
        auto const& [start, format] = box.Runs()[i];
        int const end = i + 1 < box.Runs().size() ? box.Runs()[i + 1].start : box.Length();
        runs.push_back({ { "start", start }, { "length", end - start }, { "bold", format.bold },
            { "size", ToJson(format.size) }, { "raise", ToJson(format.raise) } });
    }
    Json paragraphs = Json::array();
    for (auto const& [start, format] : box.Paragraphs())
        paragraphs.push_back({ { "start", start }, { "left", ToJson(format.left) },
            { "right", ToJson(format.right) }, { "hanging", ToJson(format.hanging) } });
    return { { "text", ToJson(box.Text()) }, { "caret", box.SelStart() },
        { "selectionLength", box.SelLength() }, { "top", box.TopOffset() }, { "runs", runs },
        { "paragraphs", paragraphs } };
}

static Json Messages(Machine& machine, Arguments const&)
{
    Json messages = Json::array();
    for (auto const& message : machine.host.TakeMessages())
        messages.push_back(
            { { "text", ToJson(message.text) }, { "title", ToJson(message.title) } });
    return { { "messages", messages } };
}

static Json Page(Machine& machine, Arguments const& arguments)
{
    auto const& browser = arguments.ControlOf<WebBrowser>(0);
    return { { "url", ToJson(browser.Url()) }, { "html", ToJson(machine.host.Html(browser)) } };
}

static Json Printed(Machine& machine, Arguments const&)
{
    Json jobs = Json::array();
    for (auto const& job : machine.host.Recorder().TakeJobs()) {
        Json pages = Json::array();
        for (auto const& page : job.pages) {
            Json pieces = Json::array();
            for (auto const& [x, y, text, font] : page) {
                Json piece { { "x", ToJson(x) }, { "y", ToJson(y) }, { "text", ToJson(text) } };
                if (font.size != job.size)
                    piece["size"] = ToJson(font.size);
                if (font.bold)
                    piece["bold"] = true;
                pieces.push_back(std::move(piece));
            }
            pages.push_back(std::move(pieces));
        }
        Json entry { { "font", ToJson(job.font) }, { "size", ToJson(job.size) },
            { "pages", pages } };
        if (!job.title.empty())
            entry["title"] = ToJson(job.title);
        jobs.push_back(std::move(entry));
    }
    return { { "jobs", jobs } };
}

static Json Settings(Machine& machine, Arguments const&)
{
    auto const all = machine.settings.All();
    if (!all)
        throw CommandError(ToUtf8(all.failure().Message()));
    Json settings = Json::array();
    for (auto const& [section, key, value] : *all)
        settings.push_back(
            { { "section", ToJson(section) }, { "key", ToJson(key) }, { "value", ToJson(value) } });
    return { { "settings", settings } };
}

static Json Opened(Machine& machine, Arguments const&)
{
    Json opened = Json::array();
    for (auto const& [verb, file] : std::exchange(machine.shell.opened, {}))
        opened.push_back({ { "verb", ToJson(verb) }, { "file", ToJson(file) } });
    return { { "opened", opened } };
}

static Json Running(Machine& machine, Arguments const&)
{
    return { { "running", !machine.screen.Ended() } };
}

std::span<Command const> Questions()
{
    static constexpr Command table[] = {
        { "running", 0, 0, Running },
        { "forms", 0, 0, Forms },
        { "get", 1, 1, Get },
        { "watch", 1, 1, Watch },
        { "changes", 0, 0, Changes },
        { "menus", 1, 1, Menus },
        { "dump", 1, 1, Dump },
        { "tree", 1, 1, Tree },
        { "tip", 2, 2, Tip },
        { "rich", 1, 1, Rich },
        { "messages", 0, 0, Messages },
        { "page", 1, 1, Page },
        { "printed", 0, 0, Printed },
        { "settings", 0, 0, Settings },
        { "textsize", 0, 0, TextSize },
        { "opened", 0, 0, Opened },
    };
    return table;
}

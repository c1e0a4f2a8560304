#pragma once
// Forms that write down their events, on the headless host.

#include "controls/button.h"
#include "controls/form.h"
#include "controls/input.h"
#include "controls/label.h"
#include "controls/menu.h"
#include "controls/rich_text_box.h"
#include "controls/screen.h"
#include "headless/headless_host.h"
#include "support/memory_file_system.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

using Log = std::vector<std::string>;

/// A form with two text boxes, a button, a label and a menu, whose events go into a log as
/// "form.control event".
class LogForm final : public Form {
public:
    LogForm(Screen& screen, char const* name, Log& log)
        : Form(screen, name, u"Test", 3000, 2000)
        , m_log(log)
    {
        for (Control* control : Controls()) {
            control->GotFocus = [this, control] { Write(std::string(control->Name()) + " got"); };
            control->LostFocus = [this, control] { Write(std::string(control->Name()) + " lost"); };
            control->Click = [this, control] {
                Write(std::string(control->Name()) + " click");
                if (onClick)
                    onClick();
            };
        }
        first.Change = [this] { Write("first change"); };
    }

    RichTextBox first { *this, *this, "first", { 0, 0, 100, 100 } };
    RichTextBox second { *this, *this, "second", { 0, 0, 100, 100 } };
    CommandButton button { *this, *this, "button", { 0, 0, 100, 100 }, u"OK" };
    Label label { *this, *this, "label", { 0, 0, 100, 100 } };
    Menu menu { *this, "menu", u"&Menu" };
    MenuEntry entry { *this, menu, "entry", u"&Entry", u"Ctrl+E" };

    Event onClick, onLoad, onResize, onUnload;
    int resizes = 0;

    void Write(std::string const& event) { m_log.push_back(std::string(Name()) + "." + event); }

private:
    void Form_Load() override { Run("load", onLoad); }
    void Form_Resize() override
    {
        ++resizes;
        if (onResize)
            onResize();
    }
    void Form_Unload() override { Run("unload", onUnload); }
    void Form_Click() override { Write("click"); }

    void Run(char const* event, Event const& handler)
    {
        Write(event);
        if (handler)
            handler();
    }

    Log& m_log;
};

/// Two such forms; `TakeLog` gives what happened since the last call.
class FormsTest : public testing::Test {
protected:
    Log TakeLog() { return std::exchange(log, {}); }

    MemoryFileSystem files;
    HeadlessHost host { files };
    Screen screen { host };
    Input input { screen };
    Log log;
    LogForm a { screen, "a", log };
    LogForm b { screen, "b", log };
};

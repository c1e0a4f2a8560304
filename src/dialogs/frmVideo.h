#pragma once
// The window in which the welcome video plays. The player has a full set of controls of its own.

#include "controls/form.h"
#include "controls/media.h"

class frmVideo final : public Form {
public:
    explicit frmVideo(Screen& screen); // outlives the form

private:
    void Form_Load() override;
    void Form_Resize() override;
    void Form_Click() override { WindowsMediaPlayer1.Play(); }
    void Form_Unload() override { WindowsMediaPlayer1.playing = false; }

    WindowsMediaPlayer WindowsMediaPlayer1 { *this, *this, "WindowsMediaPlayer1",
        { 0, 0, 7035, 5325 } };
};

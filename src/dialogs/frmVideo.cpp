#include "dialogs/frmVideo.h"

frmVideo::frmVideo(Screen& screen)
    : Form(screen, "frmVideo", u"Sparrowfield Video", 7035, 5325)
{
    centred = true;
    MousePointer = pointerHand;
    WindowsMediaPlayer1.URL = u"sparrowfield.wmv";
    WindowsMediaPlayer1.enableContextMenu = false;
    WindowsMediaPlayer1.TabIndex = 0;
}

void frmVideo::Form_Load()
{
    WindowsMediaPlayer1.currentPosition = 0;
    WindowsMediaPlayer1.Play();
}

void frmVideo::Form_Resize()
{
    WindowsMediaPlayer1.Left = 0;
    WindowsMediaPlayer1.Top = 0;
    WindowsMediaPlayer1.Width = ScaleWidth;
    WindowsMediaPlayer1.Height = ScaleHeight;
}

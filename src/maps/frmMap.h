#pragma once
// The viewer of the maps: one picture at its natural size in a viewport with scroll bars, whose
// values say where the map is. The bars, keys and dragging move it. Lengths are pixels. map_view.h
// computes the layout.

#include "controls/picture.h"
#include "controls/scroll_bar.h"
#include "controls/timer.h"
#include "maps/map_view.h"
#include "platform/file_system.h"

class frmMap final : public Form {
public:
    frmMap(Screen& screen, FileSystem const& files); // both outlive the form

    /// Shows the picture from its top left corner. If it can't be shown, the viewer is empty, and a
    /// message says why.
    void LoadMyPicture(TextView filename);

private:
    void Form_Load() override { isDragging = false; }
    void Form_Resize() override;
    void Form_Blocked() override { EndDrag(); }
    void ArrangeMapView();
    static void ArrangeBar(ScrollBar& bar, Property<float>& length, MapBar const& arranged);
    void TellWhyEmpty(TextView filename) const;
    void HandleMapKey(int keyCode);
    void Picture2_MouseDown(float x, float y);
    void Picture2_MouseMove(float x, float y);
    void Picture2_MouseUp() { EndDrag(); }
    void EndDrag();
    void Timer1_Timer();
    void BringBack(ScrollBar& bar, float strayed);

    FileSystem const& m_files;

    bool isDragging = false; // from a press on the map to its release
    // Where the map was grabbed, and where the pointer was last, from the map's top left corner.
    float dragAnchorX = 0, dragAnchorY = 0, dragPointerX = 0, dragPointerY = 0;

    PictureBox Picture1 { *this, *this, "Picture1", { 0, 0, 557, 493 } }; // the viewport
    PictureBox Picture2 { *this, Picture1, "Picture2", { 0, 0, 0, 0 } }; // the map
    PictureBox Picture3 { *this, *this, "Picture3", { 559, 494, 14, 15 },
        u":grip" }; // the corner between the bars
    HScrollBar HScroll1 { *this, *this, "HScroll1", { 0, 493, 557, mapBarThickness } };
    VScrollBar VScroll1 { *this, *this, "VScroll1", { 557, 0, mapBarThickness, 493 } };
    Timer Timer1 { *this, "Timer1", 20 }; // the steps of a drag
};

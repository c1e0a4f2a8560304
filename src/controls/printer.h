#pragma once
// The default printer, as the program uses it: text at a position in twips. A line that would begin
// past the page's end starts a new page.

#include "controls/host.h"

class Printer {
public:
    virtual ~Printer() = default;

    /// Names the job that begins next. Without a name it is a note.
    virtual void SetTitle(TextView title) = 0;
    virtual void SetFont(Font const& font) = 0;
    virtual float ScaleLeft() const = 0;
    virtual float ScaleWidth() const = 0;
    virtual float ScaleHeight() const = 0;
    virtual float CurrentX() const = 0;
    virtual void SetCurrentX(float x) = 0;
    virtual void SetCurrentY(float y) = 0;
    /// The width of a text in the present font.
    virtual float TextWidth(TextView text) const = 0;
    /// The height of a line in the present font.
    virtual float LineHeight() const = 0;
    /// Prints a text at the current position, which moves to its end.
    virtual void Print(TextView text) = 0;
    /// Moves down by a line, to the left edge.
    virtual void EndLine() = 0;
    /// Ends the page; what is printed next is at the top of another, at the left edge.
    virtual void NewPage() = 0;
    /// Sends the job off. What follows begins a new one.
    virtual void EndDoc() = 0;
};

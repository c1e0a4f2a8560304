#include "reader/print_wrapped.h"

#include "base/rounding.h"

static bool IsSeparator(char16_t character)
{
    return character <= u' ';
}

static void PrintSeparator(Printer& printer, char16_t separator, float left)
{
    if (separator == u' ') {
        printer.Print(u" ");
    } else if (separator == u'\n') {
        printer.EndLine();
        printer.SetCurrentX(left);
    } else if (separator == u'\t') {
        float const width = printer.TextWidth(u"0");
        int const columns = RoundToInt16(static_cast<double>(printer.CurrentX() / width));
        printer.SetCurrentX(static_cast<float>(columns + 10 - columns % 10) * width);
    }
}

void PrintWrapped(
    Printer& printer, TextView text, std::int32_t leftMargin, std::int32_t rightMargin)
{
    auto const left = static_cast<float>(leftMargin);
    float const limit
        = printer.ScaleLeft() + printer.ScaleWidth() - static_cast<float>(rightMargin);
    printer.SetCurrentY(100);
    printer.SetCurrentX(left);
    for (std::size_t i = 0; i < text.size();) {
        auto const start = i;
        while (i < text.size() && !IsSeparator(text[i]))
            ++i;
        auto const word = text.substr(start, i - start);
        if (limit < printer.CurrentX() + printer.TextWidth(word)) {
            printer.EndLine();
            printer.SetCurrentX(left);
        }
        printer.Print(word);
        for (; i < text.size() && IsSeparator(text[i]); ++i)
            PrintSeparator(printer, text[i], left);
    }
}

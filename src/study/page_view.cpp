#include "study/page_view.h"

TextView PageLabel(TextView page)
{
    auto const stop = page.find(u'.');
    if (stop == TextView::npos || stop == 0)
        return {};
    return page.substr(0, stop + 1);
}

Text PageText(TextView page)
{
    auto const blank = page.find(u' ');
    if (blank != TextView::npos)
        page.remove_prefix(blank + 1);
    Text text;
    if (page.empty())
        return text;
    for (TextView paragraph : Split(page, u'/'))
        text.append(Trim(paragraph)).append(u"\r\n\r\n");
    return text;
}

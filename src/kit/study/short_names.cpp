#include "kit/study/short_names.h"

#include "study/codec.h"

ShortName FindShortName(TextView text, std::size_t from)
{
    for (auto stop = text.find(u'.', from); stop != TextView::npos;
         stop = text.find(u'.', stop + 1)) {
        // The name ends at this stop, so the rest of the text makes no difference.
        Text expanded(text.substr(0, stop + 1));
        ExpandBookNames(expanded);
        if (expanded.ends_with(u'.'))
            continue;
        auto const start = text.find_last_of(u" /(“‘—", stop);
        auto const first = start == TextView::npos ? 0 : start + 1;
        return { first, stop + 1 - first };
    }
    return {};
}

Text EscapeShortNames(TextView text)
{
    Text kept(text);
    for (auto name = FindShortName(kept, 0); name.length > 0;
         name = FindShortName(kept, name.start + name.length))
        kept.insert(name.start + name.length - 1, 1, u'\u00AD');
    return kept;
}

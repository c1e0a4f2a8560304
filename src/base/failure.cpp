#include "base/failure.h"

Text Failure::Message() const
{
    Text message = file;
    if (line > 0)
        message += (message.empty() ? u"line " : u", line ") + FromNumber(line);
    if (!message.empty())
        message += u": ";
    return message + reason + u".";
}

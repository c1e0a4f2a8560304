#include "study/model_answer.h"

Text ModelAnswer(TextView answer)
{
    Text message;
    if (!answer.empty())
        for (TextView paragraph : Split(answer, u'/'))
            message.append(paragraph).append(u"\r\n\r\n");
    // Without its first two letters the phrase is found with a capital and with a small one.
    if (Contains(message, u"swers will vary"))
        return u"Answers will vary. Do you best to answer this application question because it "
               u"will help you apply the truths you are learning to your personal life.";
    return message;
}

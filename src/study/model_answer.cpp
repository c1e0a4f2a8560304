#include "study/model_answer.h"

bool LeavesAnswerToUser(TextView answer)
{
    return Contains(answer, u"swers will vary");
}

Text ModelAnswer(TextView answer)
{
    if (LeavesAnswerToUser(answer))
        return u"Answers will vary. Do you best to answer this application question because it "
               u"will help you apply the truths you are learning to your personal life.";
    Text message;
    if (!answer.empty())
        for (TextView paragraph : Split(answer, u'/'))
            message.append(paragraph).append(u"\r\n\r\n");
    return message;
}

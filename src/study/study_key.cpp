#include "study/study_key.h"

StudyKey SplitStudyKey(TextView studyKey)
{
    auto const fields = Split(studyKey, u':');
    return { Text(fields[0]), fields.size() > 1 ? Text(fields[1]) : Text() };
}

TextView PartWord(TextView fileName)
{
    return Contains(fileName, u"-1") ? u"One" : u"Two";
}

Text PartTwoName(TextView partOne)
{
    Text name(partOne);
    if (Contains(name, partEndings[0]))
        ReplaceAll(name, partEndings[0], partEndings[1]);
    else if (name.size() >= partEndings[0].size())
        name[name.size() - 5] = u'2'; // of "-1.DAT"
    return name;
}

TextView StudyName(TextView fileName)
{
    return fileName.substr(0, fileName.rfind(u'-'));
}

#include "catalogue/catalogue_nodes.h"

static constexpr TextView partOneEnd = u"-1.dat";

/// The name of the file of Part Two. File names match ignoring case, so the end may be written in capitals.
static Text PartTwoName(TextView partOne)
{
    Text name(partOne);
    if (auto const found = name.find(partOneEnd); found != Text::npos)
        ReplaceAll(name, partOneEnd, u"-2.dat");
    else if (name.size() >= partOneEnd.size())
        name[name.size() - 5] = u'2';
    return name;
}

static void AddStudy(std::vector<CatalogueNode>& nodes, StudyHead head)
{
    Text const& file = head.fileName;
    Text const partTwo = PartTwoName(file);
    nodes.push_back({ file, {}, std::move(head.title), 4, true, catalogueBackColor, std::move(head.description) });
    int lesson = 0;
    for (Text const& title : head.lessonTitles) {
        Text const number = FromNumber(++lesson);
        Text const key = file + number;
        nodes.push_back({ key, file, u"Lesson " + number + u": " + title, 3, false, catalogueBackColor, {} });
        nodes.push_back({ file + u":" + number, key, u"Part One", 0, false, catalogueBackColor, {} });
        nodes.push_back({ partTwo + u":" + number, key, u"Part Two", 0, false, catalogueBackColor, {} });
    }
}

std::vector<CatalogueNode> BuildCatalogue(FileSystem const& files, std::vector<Text> const& fileList)
{
    std::vector<CatalogueNode> nodes;
    for (Text const& fileName : fileList)
        if (auto head = ReadStudyHead(files, fileName))
            AddStudy(nodes, *std::move(head));
    return nodes;
}

#include "dialogs/start_options.h"

#include <gtest/gtest.h>

#include <string>

/// What is offered, one letter each: Install, Video, Run from CD, Enter.
static std::string Offered(StartOptions const& options)
{
    return std::string(options.install ? "I" : "") + (options.video ? "V" : "")
        + (options.runFromCD ? "R" : "") + (options.enter ? "E" : "");
}

TEST(StartOptions, OfferWhatFitsThePlace)
{
    struct Row {
        bool video;
        TextView folder;
        bool installed;
        char const* expected;
    };
    for (Row const& row : {
             Row { true, u"D:", false, "IVR" },
             { false, u"D:", false, "IR" },
             { true, u"D:", true, "VR" },
             { false, u"/media/disc", true, "R" },
             { true, u"C:\\Program Files\\Sparrowfield House\\Sparrowfield Interactive Software",
                 true, "VE" },
             { false, u"C:\\Program Files\\Elsewhere", false, "E" },
             { false, u"D:\\Programs", true, "E" },
             { false, u"D:\\MyProgram", false, "E" },
             { false, u"D:\\programs", false, "IR" },
             { false, u"D:\\PROGRAM FILES", false, "IR" },
             { true, u"", false, "IVR" },
         })
        EXPECT_EQ(Offered(ChooseStartOptions(row.video, row.folder, row.installed)), row.expected)
            << row.video << row.installed << std::string(row.folder.begin(), row.folder.end());
}

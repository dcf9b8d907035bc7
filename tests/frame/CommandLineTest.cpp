#include "frame/CommandLine.h"

#include "desktop/FileName.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using Wish = CommandLine::Wish;

class CommandLineTest : public testing::Test {
protected:
    QTemporaryDir folder;
    const QString here = QDir(folder.path()).canonicalPath();

    void SetUp() override { QDir::setCurrent(here); }
    void TearDown() override { QDir::setCurrent(QDir::rootPath()); }
};

} // namespace

TEST_F(CommandLineTest, WithoutArgumentsTheProgramJustOpens)
{
    const CommandLine line = ReadCommandLine({});
    EXPECT_EQ(line.wish, Wish::Open);
    EXPECT_TRUE(line.videos.isEmpty() && line.pictures.isEmpty());
    EXPECT_TRUE(line.others.isEmpty() && line.addresses.isEmpty());
}

TEST_F(CommandLineTest, EachArgumentIsAnAddressOrAFileByItsName)
{
    const CommandLine line = ReadCommandLine({ "a.avi", "/films/B.MPG", "p.png", "/films/c.mp4",
        "http://example.org/d.avi", "notes", "", "/films/e.avi" });
    EXPECT_EQ(line.wish, Wish::Open);
    EXPECT_EQ(line.videos, QStringList({ here + "/a.avi", "/films/B.MPG", "/films/e.avi" }));
    EXPECT_EQ(line.pictures, QStringList { here + "/p.png" });
    EXPECT_EQ(line.others, QStringList({ "/films/c.mp4", here + "/notes" }));
    EXPECT_EQ(line.addresses, QStringList { "http://example.org/d.avi" });
}

TEST_F(CommandLineTest, AnAddressOfAFileOfThisMachineIsThatFile)
{
    const CommandLine line = ReadCommandLine({ "file:///films/caf%C3%A9%20one.avi",
        "file://localhost/films/b.avi", "file://elsewhere/films/c.avi" });
    EXPECT_EQ(line.videos, QStringList({ QStringLiteral("/films/café one.avi"), "/films/b.avi" }));
    EXPECT_EQ(line.addresses, QStringList { "file://elsewhere/films/c.avi" });
}

TEST_F(CommandLineTest, ANameThatIsNoTextKeepsItsBytes)
{
    for (const char* argument : { "/films/caf\xE9.avi", "file:///films/caf%E9.avi" }) {
        const CommandLine line = ReadCommandLine({ argument });
        ASSERT_EQ(line.videos.size(), 1) << argument;
        EXPECT_EQ(FileName::ToBytes(line.videos[0]), QByteArray("/films/caf\xE9.avi")) << argument;
    }
}

TEST_F(CommandLineTest, TheFirstOptionDecides)
{
    EXPECT_EQ(ReadCommandLine({ "a.avi", "--help", "--nonsense" }).wish, Wish::Help);
    EXPECT_EQ(ReadCommandLine({ "--version", "--help" }).wish, Wish::Version);
    for (const char* none : { "--nonsense", "-h", "-", "--help=more" }) {
        const CommandLine line = ReadCommandLine({ none, "--help" });
        EXPECT_EQ(line.wish, Wish::Unknown) << none;
        EXPECT_EQ(line.unknown, QLatin1String(none));
    }
}

TEST_F(CommandLineTest, BehindTwoDashesNothingIsAnOption)
{
    const CommandLine line = ReadCommandLine({ "--", "--help.avi", "--" });
    EXPECT_EQ(line.wish, Wish::Open);
    EXPECT_EQ(line.videos, QStringList { here + "/--help.avi" });
    EXPECT_EQ(line.others, QStringList { here + "/--" });
}

TEST_F(CommandLineTest, TheHelpNamesEveryOption)
{
    for (const char* option : { "--help", "--version" })
        EXPECT_TRUE(CommandLineHelp().contains(QLatin1String(option))) << option;
}

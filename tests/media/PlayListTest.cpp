#include "media/PlayList.h"
#include "media/Failure.h"
#include "tests/testing/Files.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace media {

namespace {

class PlayLists : public testing::Test {
protected:
    QByteArray Written(const QByteArray& text, const char* name = "list.asx") const
    {
        const QString path = folder_.filePath(QLatin1String(name));
        EXPECT_TRUE(MakeFile(path, text));
        return path.toUtf8();
    }
    static Source File(const QByteArray& path) { return { Source::Kind::File, path }; }
    static std::optional<Failure> FailureOf(const Source& source)
    {
        Interrupt interrupt;
        try {
            Followed(source, interrupt);
            return std::nullopt;
        } catch (const MediaError& error) {
            return error.failure;
        }
    }
    QByteArray Folder() const { return folder_.path().toUtf8(); }

private:
    QTemporaryDir folder_;
};

QByteArray Marked(const QByteArray& reference)
{
    return "<asx version=\"3.0\">\n<entry>\n<ref href=\"" + reference + "\"/>\n</entry>\n</asx>\n";
}

} // namespace

TEST(FirstReference, IsReadInEveryFormThatListsCameIn)
{
    EXPECT_EQ(FirstReference(Marked("a.avi")), "a.avi");
    EXPECT_EQ(FirstReference("<ASX><ENTRY><REF HREF = 'b.avi' /></ENTRY></ASX>"), "b.avi");
    EXPECT_EQ(FirstReference("<asx><entry><ref id=1 href=c.avi></entry></asx>"), "c.avi");
    EXPECT_EQ(FirstReference("[Reference]\r\nRef1=d.avi\r\nRef2=e.avi\r\n"), "d.avi");
    EXPECT_EQ(FirstReference(Marked("http://h/?a=1&amp;b=2")), "http://h/?a=1&b=2");
    EXPECT_EQ(
        FirstReference("<asx><entry><ref href=\"f.avi\"/><ref href=\"g.avi\"/></entry></asx>"), "f.avi");
}

TEST(FirstReference, HasItsEntitiesResolvedOnce)
{
    EXPECT_EQ(FirstReference(Marked("a&#38;b&#x26;c.avi")), "a&b&c.avi");
    EXPECT_EQ(FirstReference(Marked("caf&#xE9;.avi")), "caf\xC3\xA9.avi");
    EXPECT_EQ(FirstReference(Marked("caf\xC3\xA9&apos;s.avi")), "caf\xC3\xA9's.avi");
    EXPECT_EQ(FirstReference(Marked("&#38;lt;&amp;#60;")), "&lt;&#60;");
    EXPECT_EQ(FirstReference(Marked("a&b=c;&none;&#0;&#x110000;.avi")), "a&b=c;&none;&#0;&#x110000;.avi");
}

TEST(FirstReference, IsEmptyWhereThereIsNone)
{
    EXPECT_EQ(FirstReference(""), "");
    EXPECT_EQ(FirstReference("<asx><entry><reference href=\"a.avi\"/></entry></asx>"), "");
}

TEST_F(PlayLists, OtherSourcesAreThemselves)
{
    Interrupt interrupt;
    EXPECT_EQ(Followed(File("/films/a.avi"), interrupt).data, "/films/a.avi");
    EXPECT_EQ(Followed({ Source::Kind::Memory, "x.asx" }, interrupt).data, "x.asx");
}

TEST_F(PlayLists, AListLeadsToTheFileBesideIt)
{
    Interrupt interrupt;
    EXPECT_EQ(Followed(File(Written(Marked("sub/a.avi"))), interrupt).data, Folder() + "/sub/a.avi");
    EXPECT_EQ(Followed(File(Written(Marked("/films/a.avi"), "LIST.ASX")), interrupt).data, "/films/a.avi");
}

TEST_F(PlayLists, AReferenceOfAnotherSystemIsFoundByItsBackslashes)
{
    Interrupt interrupt;
    EXPECT_EQ(Followed(File(Written(Marked("sub\\a.avi"))), interrupt).data, Folder() + "/sub/a.avi");
}

TEST_F(PlayLists, AReferenceOnTheWebBeginsWhereItsListStands)
{
    const Source list { Source::Kind::Address, "http://h.example/films/list.asx?id=1" };
    for (const auto& [reference, address] : { std::pair("a.avi", "http://h.example/films/a.avi"),
             { "new\\a.avi?x=1", "http://h.example/films/new/a.avi?x=1" },
             { "/a%20b.avi", "http://h.example/a%20b.avi" }, { "../a.avi", "http://h.example/a.avi" },
             { "//other.example/a.avi", "http://other.example/a.avi" },
             { "HTTPS://other.example/a\\b.avi", "HTTPS://other.example/a\\b.avi" } })
        EXPECT_EQ(ReferredTo(list, reference).data, address);
}

TEST_F(PlayLists, AListOnTheWebDoesNotLeadElsewhere)
{
    const Source list { Source::Kind::Address, "http://h.example/films/list.asx" };
    for (const char* reference : { "file:///etc/passwd", "mms://h.example/a", "C:\\films\\a.avi", "data:,a" })
        EXPECT_THROW(ReferredTo(list, reference), MediaError) << reference;
}

TEST_F(PlayLists, AListOnThisMachineDoesNotLeadToTheWeb)
{
    for (const char* reference :
        { "http://example.org/a.avi", "https://example.org/a.avi", "mms://example.org/a" })
        EXPECT_EQ(FailureOf(File(Written(Marked(reference)))), Failure::Refused) << reference;
}

TEST_F(PlayLists, AListOfListsIsRefused)
{
    EXPECT_EQ(FailureOf(File(Written(Marked("list.asx")))), Failure::Refused);
}

TEST_F(PlayLists, AListWithoutAReferenceIsNoVideo)
{
    EXPECT_EQ(FailureOf(File(Written("<asx></asx>"))), Failure::NotAVideo);
}

TEST_F(PlayLists, AMissingListIsNotFound)
{
    EXPECT_EQ(FailureOf(File(Folder() + "/none.asx")), Failure::NotFound);
}

} // namespace media

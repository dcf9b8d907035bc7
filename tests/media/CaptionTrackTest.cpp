#include "media/CaptionTrack.h"
#include "tests/media/CaptionTriplets.h"

#include <QStringList>
#include <gtest/gtest.h>

namespace media {

using namespace triplets;

namespace {

class CaptionTrackTest : public testing::Test {
protected:
    void Say(int number, const QByteArray& bytes) { track_.Add(number, bytes); }
    Caption At(int number) const { return track_.At(number); }
    /// The text at a picture, its rows divided by a bar.
    std::string TextAt(int number) const
    {
        QStringList rows;
        for (const CaptionRow& row : At(number)) {
            QString text;
            for (const CaptionRun& run : row.runs)
                text += run.text;
            rows += text;
        }
        return rows.join(QLatin1Char('|')).toStdString();
    }

    CaptionTrack track_;
};

} // namespace

TEST_F(CaptionTrackTest, WithoutCaptionsNothingIsSaid)
{
    EXPECT_EQ(TextAt(0), "");
    Say(0, QByteArray("\xFC\x80\x80", 3));
    EXPECT_EQ(TextAt(0), "");
}

TEST_F(CaptionTrackTest, APopOnTextAppearsWhenItIsShownAndGoesWhenItIsErased)
{
    Say(5, Codes({ PopOn, EraseHidden, LastRow }) + Letters("HIDDEN"));
    Say(25, Codes({ Show }));
    Say(50, Codes({ EraseShown }));
    EXPECT_EQ(TextAt(24), "");
    EXPECT_EQ(TextAt(25), "HIDDEN");
    EXPECT_EQ(TextAt(49), "HIDDEN");
    EXPECT_EQ(TextAt(50), "");
}

TEST_F(CaptionTrackTest, ThoseOfATrackOfItsOwnCountWhereThePicturesHaveNone)
{
    track_.AddOfTrack(3, Codes({ PopOn, LastRow }) + Letters("ASIDE ") + Codes({ Show }));
    EXPECT_EQ(TextAt(2), "");
    EXPECT_EQ(TextAt(3), "ASIDE ");
    Say(5, Codes({ PopOn, LastRow }) + Letters("WITHIN") + Codes({ Show }));
    EXPECT_EQ(TextAt(3), "");
    EXPECT_EQ(TextAt(5), "WITHIN");
}

TEST_F(CaptionTrackTest, ASecondPopOnTextReplacesTheFirst)
{
    Say(0, Codes({ PopOn, LastRow }) + Letters("ONE ") + Codes({ Show }));
    Say(10, Codes({ EraseHidden, LastRow }) + Letters("TWO ") + Codes({ Show }));
    EXPECT_EQ(TextAt(9), "ONE ");
    EXPECT_EQ(TextAt(10), "TWO ");
}

TEST_F(CaptionTrackTest, RollUpGrowsLetterByLetterAndKeepsItsRows)
{
    Say(0, Codes({ RollUp2, NewLine, LastRow }) + Letters("ON"));
    Say(1, Letters("E "));
    Say(2, Codes({ NewLine }) + Letters("TWO "));
    Say(3, Codes({ NewLine }) + Letters("SIX "));
    EXPECT_EQ(TextAt(0), "ON");
    EXPECT_EQ(TextAt(1), "ONE ");
    EXPECT_EQ(TextAt(2), "ONE |TWO ");
    EXPECT_EQ(TextAt(3), "TWO |SIX ");
    EXPECT_EQ(At(3)[0].row, 13);
    EXPECT_EQ(At(3)[1].row, 14);
}

TEST_F(CaptionTrackTest, ACodeCountsOnceWhenItIsRepeatedAtOnceAndTwiceWhenSomethingWasBetween)
{
    const QByteArray nothing("\xFC\x80\x80", 3);
    Say(0,
        Codes({ RollUp4, NewLine, LastRow }) + Letters("AA") + Codes({ NewLine }) + nothing
            + Codes({ NewLine }) + Letters("BB"));
    ASSERT_EQ(TextAt(0), "AA|BB");
    EXPECT_EQ(At(0)[0].row, 12);
    Say(1, Codes({ NewLine, SecondChannel }) + Letters("ES") + Codes({ NewLine }) + Letters("CC"));
    EXPECT_EQ(TextAt(1), "BB|CC");
    EXPECT_EQ(At(1)[0].row, 12);
}

TEST_F(CaptionTrackTest, ACodeOfWhichOneCopyIsBrokenCounts)
{
    QByteArray shown = Codes({ Show });
    shown[2] = char(shown[2] ^ 1);
    Say(0, Codes({ PopOn, LastRow }) + Letters("AB") + shown);
    EXPECT_EQ(TextAt(0), "AB");
}

TEST_F(CaptionTrackTest, RollUpShowsAsManyRowsAsItSays)
{
    Say(0, Codes({ RollUp4 }));
    for (const char* line : { "AA", "BB", "CC", "DD", "EE" })
        Say(1, Codes({ NewLine }) + Letters(line));
    EXPECT_EQ(TextAt(1), "BB|CC|DD|EE");
}

TEST_F(CaptionTrackTest, PaintOnShowsLettersAsTheyCome)
{
    Say(0, Codes({ PaintOn, LastRow }) + Letters("AB"));
    Say(1, Letters("CD"));
    EXPECT_EQ(TextAt(0), "AB");
    EXPECT_EQ(TextAt(1), "ABCD");
}

TEST_F(CaptionTrackTest, RowsIndentsAndTabsPlaceTheText)
{
    constexpr int firstRowIndent8 = 0x1154;
    constexpr int thirdTab = 0x1723;
    Say(0, Codes({ PopOn, firstRowIndent8, thirdTab }) + Letters("AB") + Codes({ Show }));
    ASSERT_EQ(At(0).size(), 1U);
    EXPECT_EQ(At(0)[0].row, 0);
    EXPECT_EQ(At(0)[0].column, 11);
}

TEST_F(CaptionTrackTest, ColourItalicsAndUnderlineHoldUntilTheyAreChanged)
{
    constexpr int rowTwelveItalic = 0x134E;
    constexpr int lastRowGreenUnderlined = 0x1463;
    constexpr int midRowRed = 0x1128;
    Say(0,
        Codes({ PopOn, rowTwelveItalic }) + Letters("AB") + Codes({ lastRowGreenUnderlined }) + Letters("CD")
            + Codes({ midRowRed }) + Letters("EF") + Codes({ Show }));
    const Caption caption = At(0);
    ASSERT_EQ(caption.size(), 2U);
    const CaptionRun italic { QStringLiteral("AB"), qRgb(255, 255, 255), true, false };
    EXPECT_EQ(caption[0].runs, std::vector { italic });
    const CaptionRun green { QStringLiteral("CD"), qRgb(0, 255, 0), false, true };
    ASSERT_EQ(caption[1].runs.size(), 2U);
    EXPECT_EQ(caption[1].runs[0], green);
    EXPECT_EQ(caption[1].runs[1].text, QStringLiteral(" EF")); // the code itself takes a cell
    EXPECT_EQ(caption[1].runs[1].colour, qRgb(255, 0, 0));
    EXPECT_FALSE(caption[1].runs[1].isUnderlined);
}

TEST_F(CaptionTrackTest, SpecialAndExtendedLettersAreWhatTheyAre)
{
    constexpr int note = 0x1137;
    constexpr int capitalAAcute = 0x1220; // replaces the plain letter before it
    constexpr int openBrace = 0x1329;
    constexpr int closeBrace = 0x132A;
    Say(0,
        Codes({ PopOn, LastRow, note }) + Letters("-A") + Codes({ capitalAAcute }) + Letters("-(")
            + Codes({ openBrace }) + Letters("B)") + Codes({ closeBrace, Show }));
    EXPECT_EQ(TextAt(0), "♪-Á-{B}");
}

TEST_F(CaptionTrackTest, TheSecondChannelIsLeftOut)
{
    Say(0, Codes({ PopOn, LastRow }) + Letters("EN") + Codes({ SecondChannel }) + Letters("ES"));
    Say(1, Codes({ PopOn }) + Letters("GL") + Codes({ Show }));
    EXPECT_EQ(TextAt(1), "ENGL");
}

TEST_F(CaptionTrackTest, TheSecondFieldIsLeftOut)
{
    Say(0,
        Codes({ PaintOn, LastRow }) + Letters("AB") + Codes({ PaintOn, LastRow }, SecondField)
            + Letters("XX", SecondField));
    EXPECT_EQ(TextAt(0), "AB");
}

TEST_F(CaptionTrackTest, PagesOfTextAreNoCaptions)
{
    Say(0, Codes({ PaintOn, LastRow }) + Letters("AB"));
    Say(1, Codes({ TextPage }) + Letters("WEATHER "));
    EXPECT_EQ(TextAt(1), "AB");
    Say(2, Codes({ EraseShown }));
    EXPECT_EQ(TextAt(2), "");
    Say(3, Codes({ PaintOn, LastRow }) + Letters("CD"));
    EXPECT_EQ(TextAt(3), "CD");
}

TEST_F(CaptionTrackTest, ABrokenPairHarmsItsOwnLettersOnly)
{
    QByteArray pairs = Codes({ PaintOn, LastRow }) + Letters("ABCDEF");
    pairs[pairs.size() - 5] = char(pairs[pairs.size() - 5] ^ 1); // in the pair CD
    Say(0, pairs);
    EXPECT_TRUE(TextAt(0).starts_with("AB"));
    EXPECT_TRUE(TextAt(0).ends_with("EF"));
}

TEST_F(CaptionTrackTest, HalfATripletAtTheEndIsPassedOver)
{
    Say(0, Codes({ PaintOn, LastRow }) + Letters("AB") + QByteArray("\xFC\x43"));
    EXPECT_EQ(TextAt(0), "AB");
}

} // namespace media

// The user's text against pictures that were looked at. They are drawn with fonts that a machine with this
// tree has (tools/packages.txt), and each is the same on screens of any scale. With TAQ_NEW_GOLDENS=<folder>
// the pictures of this run are written there, to be looked at and put in the place of the old ones.
#include "app/Lead.h"
#include "tests/text/TextSamples.h"
#include "text/PrintUserText.h"

#include <QDir>
#include <QFontDatabase>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

namespace {

/// Another build of the font engine may draw the soft edges of letters a little otherwise.
constexpr int SameShade = 24; ///< levels of a channel
constexpr double MostOthers = 0.005; ///< share of the pixels that may be further apart

bool IsSame(QRgb one, QRgb other)
{
    const auto isNear = [](int a, int b) { return std::abs(a - b) <= SameShade; };
    return isNear(qRed(one), qRed(other)) && isNear(qGreen(one), qGreen(other))
        && isNear(qBlue(one), qBlue(other));
}

/// Share of the pixels that differ.
double Distance(const QImage& one, const QImage& other)
{
    if (one.size() != other.size())
        return 1;
    int others = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x)
            others += !IsSame(one.pixel(x, y), other.pixel(x, y));
    return double(others) / (one.width() * one.height());
}

QString GoldenPath(const QString& name)
{
    return QStringLiteral(SOURCE_DIR "/tests/text/golden/") + name + QStringLiteral(".png");
}

} // namespace

TEST(GoldenText, TheFontsOfThePicturesAreHere)
{
    for (const char* family : { "DejaVu Sans", "DejaVu Serif" })
        EXPECT_TRUE(QFontDatabase::families().contains(QLatin1String(family))) << family;
    EXPECT_TRUE(QFontDatabase::styles(QStringLiteral("DejaVu Sans")).contains(QStringLiteral("Oblique")))
        << "a leaning font of its own, where another would be made to lean";
}

TEST(GoldenText, EveryStyleAndEverySettingIsDrawnAsInItsPicture)
{
    for (const TextSample& sample : TextSamples()) {
        const QImage golden(GoldenPath(sample.name));
        EXPECT_LE(Distance(sample.picture, golden), MostOthers) << sample.name.toStdString();
    }
}

TEST(GoldenText, AControlDrawsTheSameAsIsDrawnIntoFiles)
{
    for (const TextSample& sample : TextSamples()) {
        Lead lead;
        lead.SetBitmap(TextGround(sample.picture.size()));
        PrintUserText(lead, sample.text);
        EXPECT_EQ(lead.Bitmap(), sample.picture) << sample.name.toStdString();
    }
}

TEST(GoldenText, EverySampleIsFurtherFromTheOthersThanAnyFontEngineMayBe)
{
    std::vector<TextSample> samples = TextSamples();
    // Without the effects a text is a normal one.
    std::erase_if(
        samples, [](const TextSample& sample) { return sample.name == QLatin1String("no-shadows"); });
    for (size_t i = 0; i < samples.size(); ++i)
        for (size_t other = 0; other < i; ++other)
            EXPECT_GT(Distance(samples[i].picture, samples[other].picture), 2 * MostOthers)
                << samples[i].name.toStdString() << " and " << samples[other].name.toStdString();
}

TEST(GoldenText, NoPictureIsThereThatNothingIsComparedWith)
{
    QStringList drawn;
    for (const TextSample& sample : TextSamples())
        drawn << sample.name + QStringLiteral(".png");
    drawn.sort();
    EXPECT_EQ(
        QDir(QStringLiteral(SOURCE_DIR "/tests/text/golden")).entryList(QDir::Files, QDir::Name), drawn);
}

TEST(GoldenText, NewPicturesAreForTheEyeFirst)
{
    const QString folder = qEnvironmentVariable("TAQ_NEW_GOLDENS");
    if (folder.isEmpty())
        return;
    ASSERT_TRUE(QDir().mkpath(folder));
    for (const TextSample& sample : TextSamples())
        EXPECT_TRUE(sample.picture.save(folder + u'/' + sample.name + QStringLiteral(".png")));
    ADD_FAILURE() << "look at the pictures in " << folder.toStdString();
}

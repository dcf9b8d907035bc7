#include "imaging/PictureText.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <numbers>
#include <set>

using imaging::TextLook;
using imaging::TextStyle;
using imaging::WithText;

namespace {

const QColor Ground(0, 0, 128);
const QColor Face(255, 255, 255);
const QColor Hilite(255, 255, 0);
const QColor Shadow(255, 0, 0);
constexpr QPoint Place { 40, 30 };
const QString Square = QStringLiteral("\u25A0"); // one that fills its box with ink

QImage Plain(QSize size = { 480, 240 }, QImage::Format format = QImage::Format_BGR888)
{
    QImage picture(size, format);
    picture.fill(Ground);
    return picture;
}

TextLook Look(TextStyle style = TextStyle::Normal)
{
    TextLook look;
    look.font = QStringLiteral("DejaVu Sans");
    look.points = 24;
    look.color = Face;
    look.style = style;
    look.hilite = Hilite;
    look.shadow = Shadow;
    look.shadowDepth = { 6, 9 };
    look.place = QRectF(Place, QSizeF(480, 240 + 220));
    return look;
}

QImage Drawn(const QString& text, const TextLook& look)
{
    return WithText(Plain(), text, look);
}

/// The box round every pixel that fits.
template <typename Fits> QRect Box(const QImage& picture, Fits&& fits)
{
    QRect box;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (fits(picture.pixelColor(x, y)))
                box |= QRect(x, y, 1, 1);
    return box;
}

QRect Ink(const QImage& picture)
{
    return Box(picture, [](const QColor& pixel) { return pixel != Ground; });
}

QRect BoxOf(const QImage& picture, const QColor& color)
{
    return Box(picture, [&](const QColor& pixel) { return pixel == color; });
}

int DifferentPixels(const QImage& one, const QImage& other)
{
    int count = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x)
            count += one.pixel(x, y) != other.pixel(x, y);
    return count;
}

QPointF Centre(const QImage& picture, const QRect& part)
{
    QPointF sum;
    double weight = 0;
    for (int y = part.top(); y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x) {
            const double ink = picture.pixelColor(x, y).green();
            sum += QPointF(x, y) * ink;
            weight += ink;
        }
    return sum / weight;
}

/// Direction of the ink's longer axis in degrees, counter-clockwise, -90 to 90.
double Axis(const QImage& picture)
{
    const QPointF centre = Centre(picture, picture.rect());
    double xx = 0;
    double xy = 0;
    double yy = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) {
            const double ink = picture.pixelColor(x, y).green();
            const QPointF from = QPointF(x, y) - centre;
            xx += ink * from.x() * from.x();
            xy -= ink * from.x() * from.y(); // rows count downwards
            yy += ink * from.y() * from.y();
        }
    return std::atan2(2 * xy, xx - yy) / 2 * 180 / std::numbers::pi;
}

} // namespace

TEST(TextStyles, AreEightWithTheirNamesInTheOrderOfTheirNumbers)
{
    const std::array names { "Normal", "Inset Light", "Inset Heavy", "Raised Light", "Raised Heavy",
        "DropShadow", "BlockShadow", "Outline Block" };
    ASSERT_EQ(imaging::TextStyles.size(), names.size());
    for (size_t i = 0; i < names.size(); ++i)
        EXPECT_STREQ(imaging::TextStyles.at(i).name, names.at(i));
}

TEST(TextStyles, EachLooksLikeNoOtherAtSmallAndLargeSizes)
{
    for (const double points : { 10.0, 24.0, 60.0 }) {
        std::vector<QImage> drawn;
        for (const imaging::TextStyleRow& row : imaging::TextStyles) {
            TextLook look = Look(row.style);
            look.points = points;
            drawn.push_back(Drawn(QStringLiteral("Sample"), look));
        }
        const int ink = DifferentPixels(drawn.front(), Plain());
        for (size_t one = 0; one < drawn.size(); ++one)
            for (size_t other = 0; other < one; ++other)
                EXPECT_GT(DifferentPixels(drawn[one], drawn[other]), ink / 10)
                    << imaging::TextStyles.at(one).name << " and " << imaging::TextStyles.at(other).name
                    << " at " << points;
    }
}

TEST(TextStyles, NormalHasNoColourButTheTexts)
{
    const QImage drawn = Drawn(QStringLiteral("Sample"), Look());
    for (int y = 0; y < drawn.height(); ++y)
        for (int x = 0; x < drawn.width(); ++x) {
            const QColor pixel = drawn.pixelColor(x, y);
            ASSERT_EQ(pixel.red(), pixel.green());
            ASSERT_NEAR(pixel.blue(), 128 + pixel.red() * 127 / 255.0, 1.5);
        }
    EXPECT_FALSE(BoxOf(drawn, Face).isEmpty());
}

TEST(TextStyles, RaisedIsLitAboveAndDarkBelowAndInsetTheOtherWayRound)
{
    const struct {
        TextStyle style;
        QColor above;
        QColor below;
    } cases[] = { { TextStyle::RaisedLight, Hilite, Shadow }, { TextStyle::RaisedHeavy, Hilite, Shadow },
        { TextStyle::InsetLight, Shadow, Hilite }, { TextStyle::InsetHeavy, Shadow, Hilite } };
    for (const auto& each : cases) {
        TextLook look = Look(each.style);
        look.points = 60; // an edge of one pixel would be mixed with that of the letters
        const QImage drawn = Drawn(Square, look);
        const QRect face = BoxOf(drawn, Face);
        EXPECT_LT(BoxOf(drawn, each.above).top(), face.top());
        EXPECT_LT(BoxOf(drawn, each.above).left(), face.left());
        EXPECT_GT(BoxOf(drawn, each.below).bottom(), face.bottom());
        EXPECT_GT(BoxOf(drawn, each.below).right(), face.right());
        EXPECT_EQ(drawn.pixelColor(face.center()), Face);
    }
}

TEST(TextStyles, HeavyEdgesAreWiderThanLightOnes)
{
    for (const double points : { 10.0, 24.0, 60.0 }) {
        const auto edges = [points](TextStyle style) {
            TextLook look = Look(style);
            look.points = points;
            const QImage drawn = Drawn(Square, look);
            return Ink(drawn).width() - BoxOf(drawn, Face).width();
        };
        EXPECT_GT(edges(TextStyle::InsetHeavy), edges(TextStyle::InsetLight)) << points;
        EXPECT_GT(edges(TextStyle::RaisedHeavy), edges(TextStyle::RaisedLight)) << points;
    }
}

TEST(TextStyles, DropShadowIsACopyAtTheOffset)
{
    for (const QPoint depth : { QPoint(50, 55), QPoint(-35, 52), QPoint(60, 0) }) {
        TextLook look = Look(TextStyle::DropShadow);
        look.shadowDepth = depth;
        const QImage drawn = Drawn(Square, look);
        EXPECT_EQ(BoxOf(drawn, Shadow), BoxOf(drawn, Face).translated(depth)) << depth.x();
    }
}

TEST(TextStyles, DropShadowLeavesTheGroundBetween)
{
    TextLook look = Look(TextStyle::DropShadow);
    look.shadowDepth = { 50, 0 };
    const QImage drawn = Drawn(Square, look);
    const QRect face = BoxOf(drawn, Face);
    EXPECT_EQ(drawn.pixelColor(face.right() + 10, face.center().y()), Ground);
}

TEST(TextStyles, BlockShadowFillsTheWayToTheOffset)
{
    TextLook look = Look(TextStyle::BlockShadow);
    look.shadowDepth = { 50, 40 };
    const QImage drawn = Drawn(Square, look);
    const QRect face = BoxOf(drawn, Face);
    for (int step = 1; step <= 10; ++step)
        EXPECT_EQ(drawn.pixelColor(face.bottomRight() + look.shadowDepth * step / 10), Shadow) << step;
    EXPECT_EQ(BoxOf(drawn, Shadow).bottomRight(), face.bottomRight() + look.shadowDepth);
}

TEST(TextStyles, OutlineBlockHasALineAroundTheLettersAndABlockBelow)
{
    const QImage drawn = Drawn(Square, Look(TextStyle::OutlineBlock));
    const QRect face = BoxOf(drawn, Face);
    const QRect outline = BoxOf(drawn, Hilite);
    EXPECT_LT(outline.left(), face.left());
    EXPECT_LT(outline.top(), face.top());
    EXPECT_GT(outline.right(), face.right());
    EXPECT_GT(outline.bottom(), face.bottom());
    EXPECT_EQ(BoxOf(drawn, Shadow).bottomRight(), outline.bottomRight() + QPoint(6, 9));
}

TEST(TextStyles, AShadowIsHeldToSixtyPixels)
{
    for (const TextStyle style : { TextStyle::DropShadow, TextStyle::BlockShadow, TextStyle::OutlineBlock }) {
        TextLook far = Look(style);
        far.shadowDepth = { 32767, -32768 };
        far.place.moveTop(120);
        TextLook held = far;
        held.shadowDepth = { 60, -60 };
        EXPECT_EQ(Drawn(Square, far), Drawn(Square, held));
    }
}

TEST(TextStyles, AShadowOfNoOffsetIsHiddenByTheLetters)
{
    TextLook look = Look(TextStyle::BlockShadow);
    look.shadowDepth = {};
    EXPECT_EQ(Ink(Drawn(Square, look)), Ink(Drawn(Square, Look())));
}

TEST(TextOnPictures, StandsAtItsPlace)
{
    const QRect ink = Ink(Drawn(QStringLiteral("Hg"), Look()));
    EXPECT_GE(ink.left(), Place.x());
    EXPECT_LT(ink.left(), Place.x() + 8);
    EXPECT_GE(ink.top(), Place.y());
    EXPECT_LT(ink.top(), Place.y() + 16);
    TextLook moved = Look();
    moved.place.translate(100, 50);
    EXPECT_EQ(Ink(Drawn(QStringLiteral("Hg"), moved)), ink.translated(100, 50));
}

TEST(TextOnPictures, PointsAreOfNinetySixDotsToTheInch)
{
    TextLook look = Look();
    look.points = 72;
    constexpr double capital = 0.729; // of an em, in this font
    EXPECT_NEAR(Ink(Drawn(QStringLiteral("H"), look)).height(), 96 * capital, 1.5);
}

TEST(TextOnPictures, TheResolutionOfThePictureDoesNotShow)
{
    QImage fine = Plain();
    fine.setDotsPerMeterX(11811);
    fine.setDotsPerMeterY(11811);
    EXPECT_EQ(Ink(WithText(fine, QStringLiteral("Hg"), Look())), Ink(Drawn(QStringLiteral("Hg"), Look())));
}

TEST(TextOnPictures, ASizeOutsideTheBoundsIsTheNearestBound)
{
    TextLook least = Look();
    least.points = 1;
    for (const double points : { 0.0, -12.0, 0.3, std::numeric_limits<double>::quiet_NaN() }) {
        TextLook look = Look();
        look.points = points;
        EXPECT_EQ(Drawn(QStringLiteral("Hg"), look), Drawn(QStringLiteral("Hg"), least)) << points;
    }
    TextLook greatest = Look();
    greatest.points = 1000;
    greatest.place = { 0, -800, 2000, 2000 };
    TextLook endless = greatest;
    endless.points = std::numeric_limits<double>::infinity();
    EXPECT_EQ(Drawn(Square, endless), Drawn(Square, greatest));
    EXPECT_FALSE(Ink(Drawn(Square, greatest)).isEmpty());
}

TEST(TextOnPictures, IsOfTheFontAsked)
{
    TextLook mono = Look();
    mono.font = QStringLiteral("DejaVu Sans Mono");
    const QString narrow = QStringLiteral("iiiiiiii");
    EXPECT_GT(Ink(Drawn(narrow, mono)).width(), Ink(Drawn(narrow, Look())).width() * 3 / 2);
}

TEST(TextOnPictures, AFontThatIsMissingIsReplaced)
{
    TextLook look = Look();
    for (const char* font : { "No such font", "", ",", "Arial" }) {
        look.font = QLatin1String(font);
        EXPECT_FALSE(Ink(Drawn(QStringLiteral("Sample"), look)).isEmpty()) << font;
    }
}

TEST(TextOnPictures, ItalicLeansToTheRight)
{
    const auto lean = [](bool isItalic) {
        TextLook look = Look();
        look.isItalic = isItalic;
        const QImage drawn = Drawn(QStringLiteral("I"), look);
        const QRect ink = Ink(drawn);
        const QRect top(ink.x(), ink.y(), ink.width(), ink.height() / 3);
        return Centre(drawn, top).x() - Centre(drawn, top.translated(0, ink.height() * 2 / 3)).x();
    };
    EXPECT_NEAR(lean(false), 0, 0.5);
    EXPECT_GT(lean(true), 2);
}

TEST(TextOnPictures, BoldIsHeavier)
{
    TextLook bold = Look();
    bold.isBold = true;
    const QString text = QStringLiteral("lll");
    EXPECT_GT(DifferentPixels(Drawn(text, bold), Plain()), DifferentPixels(Drawn(text, Look()), Plain()));
}

TEST(TextOnPictures, AnAngleIsInTenthsOfADegreeCounterClockwise)
{
    const QString line = QStringLiteral("\u2014\u2014\u2014\u2014");
    for (const int tenths : { 0, 5, 300, 450, 899, -300, 3300, 1500, 36000 + 450 }) {
        TextLook look = Look();
        look.angle = tenths;
        const double turned = std::remainder(tenths / 10.0, 180);
        EXPECT_NEAR(std::remainder(Axis(Drawn(line, look)) - turned, 180), 0, 0.3) << tenths;
    }
}

TEST(TextOnPictures, AQuarterTurnReadsUpwards)
{
    TextLook look = Look();
    look.angle = 900;
    const QImage drawn = Drawn(Square + QStringLiteral("......."), look);
    const QRect ink = Ink(drawn);
    EXPECT_GT(ink.height(), ink.width());
    EXPECT_GT(Centre(drawn, ink).y(), ink.center().y());
}

TEST(TextOnPictures, HoweverTurnedItsUpperLeftCornerStaysAtItsPlace)
{
    for (int angle = 0; angle < 3600; angle += 150) {
        TextLook look = Look();
        look.angle = angle;
        look.points = 12;
        const QRect ink = Ink(Drawn(QStringLiteral("Turned text"), look));
        EXPECT_GE(ink.left(), Place.x() - 1) << angle;
        EXPECT_GE(ink.top(), Place.y() - 1) << angle;
        EXPECT_LT(ink.left(), Place.x() + 16) << angle;
        EXPECT_LT(ink.top(), Place.y() + 16) << angle;
    }
}

TEST(TextOnPictures, TheShadowOfTurnedTextFallsWhereItsOffsetSays)
{
    TextLook look = Look(TextStyle::DropShadow);
    look.angle = 900;
    look.shadowDepth = { 50, 10 };
    const QImage drawn = Drawn(Square, look);
    EXPECT_EQ(BoxOf(drawn, Shadow), BoxOf(drawn, Face).translated(50, 10));
}

TEST(TextOnPictures, EveryKindOfLineBreakCountsWithWrappingOffToo)
{
    const QImage two = Drawn(QStringLiteral("One\nTwo"), Look());
    EXPECT_GT(Ink(two).height(), Ink(Drawn(QStringLiteral("One Two"), Look())).height() * 3 / 2);
    for (const char16_t* text : { u"One\r\nTwo", u"One\rTwo", u"One\u2028Two", u"One\u2029Two" })
        EXPECT_EQ(Drawn(QString::fromUtf16(text), Look()), two);
}

TEST(TextOnPictures, AnEmptyLineTakesItsRoom)
{
    EXPECT_GT(Ink(Drawn(QStringLiteral("One\n\nTwo"), Look())).height(),
        Ink(Drawn(QStringLiteral("One\nTwo"), Look())).height());
}

TEST(TextOnPictures, WithoutWrappingALongLineRunsOutOfThePicture)
{
    const QRect ink = Ink(Drawn(QStringLiteral("word ").repeated(60), Look()));
    EXPECT_GT(ink.right(), 460);
    EXPECT_LT(ink.height(), 40);
}

TEST(TextOnPictures, WrappedLinesEndBeforeThePicturesEdge)
{
    TextLook look = Look();
    look.wraps = true;
    const QRect ink = Ink(Drawn(QStringLiteral("word ").repeated(12), look));
    EXPECT_LT(ink.right(), 480);
    EXPECT_GT(ink.right(), 300);
    EXPECT_GT(ink.height(), 50);
}

TEST(TextOnPictures, WrappedLinesEndBeforeTheEdgeOfANarrowerPlace)
{
    TextLook look = Look();
    look.wraps = true;
    look.place.setWidth(200);
    const QRect ink = Ink(Drawn(QStringLiteral("word ").repeated(12), look));
    EXPECT_LE(ink.right(), Place.x() + 200);
    EXPECT_GT(ink.height(), 50);
}

TEST(TextOnPictures, AWordLongerThanItsLineIsBroken)
{
    TextLook look = Look();
    look.wraps = true;
    const QRect ink = Ink(Drawn(QStringLiteral("m").repeated(30), look));
    EXPECT_LT(ink.right(), 480);
    EXPECT_GT(ink.height(), 40);
}

TEST(TextOnPictures, LinesThatBeginBelowThePlaceAreLeftOut)
{
    TextLook look = Look();
    look.place.setHeight(20);
    EXPECT_EQ(Drawn(QStringLiteral("One\nTwo\nThree"), look), Drawn(QStringLiteral("One"), Look()));
}

TEST(TextOnPictures, LinesBeginAtTheLeftAndRightToLeftOnesAtTheRight)
{
    const auto lastLine = [](const char16_t* text) {
        const QImage drawn = Drawn(QString::fromUtf16(text), Look());
        const QRect ink = Ink(drawn);
        return std::pair(ink, Box(drawn.copy(0, ink.bottom() - 12, drawn.width(), 12),
                                  [](const QColor& pixel) { return pixel != Ground; }));
    };
    const auto [latin, latinLast] = lastLine(u"wide line\ni");
    EXPECT_LT(latinLast.right(), latin.center().x());
    const auto [hebrew, hebrewLast] = lastLine(u"\u05e9\u05dc\u05d5\u05dd \u05e2\u05d5\u05dc\u05dd\n\u05d0");
    EXPECT_GT(hebrewLast.left(), hebrew.center().x());
    EXPECT_GE(hebrew.left(), Place.x());
}

TEST(TextOnPictures, ArabicLettersAreJoined)
{
    const int joined = Ink(Drawn(QString::fromUtf16(u"\u0645\u0631\u062d\u0628\u0627"), Look())).width();
    const int apart =
        Ink(Drawn(QString::fromUtf16(u"\u0645\u200C\u0631\u200C\u062d\u200C\u0628\u200C\u0627"), Look()))
            .width();
    EXPECT_LT(joined, apart);
}

TEST(TextOnPictures, EveryIdeographIsItsOwn)
{
    std::set<QByteArray> seen;
    for (const char16_t* text : { u"\u65e5", u"\u672c", u"\u8a9e", u"\u4e2d", u"\u6587" }) {
        const QImage drawn = Drawn(QString::fromUtf16(text), Look());
        seen.insert(QByteArray(reinterpret_cast<const char*>(drawn.constBits()), drawn.sizeInBytes()));
    }
    EXPECT_EQ(seen.size(), 5u) << "fonts-droid-fallback is needed";
}

TEST(TextOnPictures, EmojiComeInTheirOwnColoursAndInEveryStyle)
{
    const QString strawberry = QStringLiteral("\U0001F353");
    for (const imaging::TextStyleRow& row : imaging::TextStyles) {
        TextLook look = Look(row.style);
        look.shadow = Qt::black;
        const QRect red = Box(Drawn(strawberry, look),
            [](const QColor& pixel) { return pixel.red() > 180 && pixel.green() < 90 && pixel.blue() < 90; });
        EXPECT_GT(red.width(), 10) << row.name << "; fonts-noto-color-emoji is needed";
    }
    const QImage outlined = Drawn(strawberry, Look(TextStyle::OutlineBlock));
    EXPECT_LT(BoxOf(outlined, Hilite).left(), Ink(Drawn(strawberry, Look())).left() + 1);
}

TEST(TextOnPictures, ATextOfAHundredThousandLettersIsDrawn)
{
    TextLook look = Look();
    EXPECT_FALSE(Ink(Drawn(QStringLiteral("m").repeated(100000), look)).isEmpty());
    look.wraps = true;
    EXPECT_GT(Ink(Drawn(QStringLiteral("m").repeated(100000), look)).bottom(), 220);
}

TEST(TextOnPictures, BeyondThePictureNothingIsDrawn)
{
    const QImage picture = Plain();
    constexpr double Infinite = std::numeric_limits<double>::infinity();
    for (const QPointF place : { QPointF(480, 0), QPointF(600, 40), QPointF(40, 400), QPointF(-2000, 40),
             QPointF(40, -2000), QPointF(1e30, 1e30), QPointF(-Infinite, 0), QPointF(Infinite, Infinite) }) {
        TextLook look = Look(TextStyle::BlockShadow);
        look.place.moveTopLeft(place);
        for (const bool wraps : { false, true }) {
            look.wraps = wraps;
            EXPECT_EQ(WithText(picture, QStringLiteral("Outside"), look), picture) << place.x();
        }
    }
}

TEST(TextOnPictures, LettersBesideThePictureThrowTheirShadowIntoIt)
{
    TextLook look = Look(TextStyle::DropShadow);
    look.shadowDepth = { 60, 0 };
    look.place.moveLeft(-50);
    const QImage drawn = Drawn(Square, look);
    EXPECT_TRUE(BoxOf(drawn, Face).isEmpty());
    EXPECT_FALSE(BoxOf(drawn, Shadow).isEmpty());
}

TEST(TextOnPictures, ABlankTextLeavesThePicture)
{
    const QImage picture = Plain();
    for (const char* text : { "", "   ", "\n\n" })
        EXPECT_EQ(WithText(picture, QLatin1String(text), Look()).constBits(), picture.constBits());
    EXPECT_TRUE(WithText({}, QStringLiteral("Sample"), Look()).isNull());
}

TEST(TextOnPictures, PixelsAwayFromTheLettersStayAsTheyWere)
{
    QImage photo({ 480, 240 }, QImage::Format_BGR888);
    for (int y = 0; y < photo.height(); ++y)
        for (int x = 0; x < photo.width(); ++x)
            photo.setPixelColor(x, y, QColor(x % 256, y, (x * y) % 256));
    const QImage before = photo;
    const QImage drawn = WithText(photo, QStringLiteral("Hg"), Look(TextStyle::OutlineBlock));
    EXPECT_EQ(photo, before);
    const QRect around = Ink(Drawn(QStringLiteral("Hg"), Look(TextStyle::OutlineBlock)));
    EXPECT_NE(drawn.copy(around), before.copy(around));
    for (int y = 0; y < photo.height(); ++y)
        for (int x = 0; x < photo.width(); ++x)
            ASSERT_TRUE(around.contains(x, y) || drawn.pixel(x, y) == before.pixel(x, y)) << x << "," << y;
}

TEST(TextOnPictures, TrueColourPicturesKeepTheirFormatAndOthersBecomeTrueColour)
{
    const struct {
        QImage::Format before;
        QImage::Format after;
    } cases[] = { { QImage::Format_BGR888, QImage::Format_BGR888 },
        { QImage::Format_ARGB32, QImage::Format_ARGB32 }, { QImage::Format_RGB32, QImage::Format_RGB32 },
        { QImage::Format_RGB16, QImage::Format_RGB16 }, { QImage::Format_Indexed8, QImage::Format_BGR888 },
        { QImage::Format_Mono, QImage::Format_BGR888 } };
    for (const auto& each : cases) {
        const QImage drawn =
            WithText(Plain().convertToFormat(each.before), QStringLiteral("Sample"), Look());
        EXPECT_EQ(drawn.format(), each.after);
        EXPECT_FALSE(BoxOf(drawn, Face).isEmpty());
    }
}

TEST(TextOnPictures, TransparentPicturesStayTransparentAroundTheLetters)
{
    QImage picture({ 480, 240 }, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    const QImage drawn = WithText(picture, Square, Look());
    EXPECT_EQ(drawn.pixelColor(300, 200).alpha(), 0);
    EXPECT_EQ(BoxOf(drawn, Face), BoxOf(Drawn(Square, Look()), Face));
}

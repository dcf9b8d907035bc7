#include "print/AAPrintPicture.h"
#include "settingsui/PreviewSize.h"
#include "tests/settingsui/OptionsFixture.h"

#include <QComboBox>
#include <QListWidget>

namespace {

class OptionsPrint : public OptionsFixture {
protected:
    QListWidget& Printers() { return *Find<QListWidget>("List1"); }
    QComboBox& Alignments() { return *Find<QComboBox>("cmbAlign"); }
    QImage Preview() { return Find<QLabel>("picPreview")->pixmap().toImage(); }
    /// The part of the preview that is no bare paper.
    QRect PlaceOfPicture()
    {
        const QImage page = Preview();
        QRect place;
        for (int y = 0; y < page.height(); ++y)
            for (int x = 0; x < page.width(); ++x)
                if (page.pixelColor(x, y) != QColor(Qt::white))
                    place |= QRect(x, y, 1, 1);
        return place;
    }
    /// As a user does in the open list.
    void Choose(int alignment)
    {
        Alignments().setCurrentIndex(alignment);
        Q_EMIT Alignments().activated(alignment);
    }
};

} // namespace

TEST_F(OptionsPrint, TheNinePositionsStandInTheirOrderWithTheirSpacing)
{
    QStringList rows;
    for (int i = 0; i < Alignments().count(); ++i)
        rows << Alignments().itemText(i);
    EXPECT_EQ(rows.join(u'|'),
        QStringLiteral(
            "Top        ~  Left|Top        ~  Center|Top        ~  Right|Middle   ~  Left|"
            "Middle   ~  Center|Middle   ~  Right|Bottom  ~  Left|Bottom  ~  Center|Bottom  ~  Right"));
}

TEST_F(OptionsPrint, ThePreviewShowsThePictureInItsPlace)
{
    QImage picture(100, 100, QImage::Format_RGB32);
    picture.fill(Qt::blue);
    frame.picSource = picture;
    BeginWith("PPosition", "0");
    EXPECT_EQ(PlaceOfPicture().topLeft(), QPoint(0, 0));
    EXPECT_EQ(Preview().pixelColor(3, 3), QColor(Qt::blue));
    Choose(8);
    EXPECT_EQ(PlaceOfPicture().bottomRight(), Preview().rect().bottomRight());
    Choose(4);
    const QPoint apart = PlaceOfPicture().center() - Preview().rect().center();
    EXPECT_LE(apart.manhattanLength(), 2);
}

TEST_F(OptionsPrint, ThePreviewBeginsAtTheCornerOfItsPlace)
{
    QImage picture(100, 100, QImage::Format_RGB32);
    picture.fill(Qt::blue);
    frame.picSource = picture;
    BeginWith("PPosition", "0");
    ComeTo(PrintPage);
    EXPECT_EQ(Find("picPreview")->grab().toImage().pixelColor(0, 0), QColor(Qt::blue));
}

TEST_F(OptionsPrint, APositionChosenWhileAnotherIsDrawnIsTheOneShown)
{
    frame.whenPumped = [this] {
        frame.whenPumped = {};
        Choose(8);
    };
    Choose(0);
    EXPECT_EQ(Alignments().currentIndex(), 8);
    EXPECT_EQ(PlaceOfPicture().bottomRight(), Preview().rect().bottomRight());
}

TEST_F(OptionsPrint, APaperOfWhichThePrinterReachesNothingHasNoPreview)
{
    ASSERT_FALSE(Preview().isNull());
    frame.printers.margins = QMargins(1, 1, 1, 1) * (6 * PrinterPixelsPerInch);
    Choose(0);
    EXPECT_TRUE(Preview().isNull());
}

TEST_F(OptionsPrint, ThePreviewHasNoBorder)
{
    EXPECT_FALSE(Find<AAPrintPicture>("AAPrintPicture1")->ShowBorder());
}

TEST_F(OptionsPrint, WithoutAPictureAPlainOneShowsThePlace)
{
    EXPECT_FALSE(PlaceOfPicture().isEmpty());
    EXPECT_TRUE(Preview().rect().contains(PlaceOfPicture()));
}

TEST_F(OptionsPrint, AChoiceOfPositionGivesTheKeyboardToCo)
{
    Activate();
    ComeTo(PrintPage);
    Alignments().setFocus();
    Choose(2);
    EXPECT_EQ(QApplication::focusWidget(), Find("Co"));
}

TEST_F(OptionsPrint, TheArrowsGoOnThroughThePositions)
{
    Activate();
    ComeTo(PrintPage);
    Alignments().setFocus();
    QTest::keyClick(&Alignments(), Qt::Key_Down);
    EXPECT_EQ(Alignments().currentIndex(), 5);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    EXPECT_EQ(Alignments().currentIndex(), 6);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
    EXPECT_EQ(Alignments().currentIndex(), 5);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    EXPECT_EQ(Alignments().currentIndex(), 4) << "Co goes back to the middle";
}

TEST_F(OptionsPrint, AStoredPositionThatThereIsNotIsKept)
{
    Store("PPosition", "12");
    state.Reload(Key::PPosition);
    Begin();
    EXPECT_EQ(Alignments().currentIndex(), -1);
    Save();
    EXPECT_EQ(Stored("PPosition"), QStringLiteral("12"));
}

TEST_F(OptionsPrint, ThePrintersAreListedWithTheDefaultOneSelected)
{
    frame.printers.list.defaultName = QStringLiteral("Beta");
    Begin();
    ASSERT_EQ(Printers().count(), 2);
    EXPECT_EQ(Printers().item(0)->text(), QStringLiteral("Alpha"));
    EXPECT_EQ(Printers().currentItem()->text(), QStringLiteral("Beta"));
    EXPECT_EQ(Label("Label9"), QStringLiteral("Beta"));
}

TEST_F(OptionsPrint, WithoutPrintersTheReasonIsTold)
{
    frame.printers.RemoveAll();
    Begin();
    EXPECT_EQ(Printers().count(), 0);
    const auto labels = form->findChildren<QLabel*>();
    EXPECT_TRUE(std::ranges::any_of(
        labels, [](QLabel* label) { return label->text() == QStringLiteral("No printer is set up."); }));
}

TEST_F(OptionsPrint, APrinterIsMadeTheDefaultAndTold)
{
    Printers().setCurrentRow(1);
    frame.errors.Expect(
        QStringLiteral("Success!"), QStringLiteral("Beta has successfully been set as the default printer."));
    Click("Cmds(2)");
    EXPECT_EQ(frame.printers.list.defaultName, QStringLiteral("Beta"));
    EXPECT_EQ(Label("Label9"), QStringLiteral("Beta"));
    EXPECT_TRUE(form->isVisible());
    form.reset();
    EXPECT_EQ(frame.printers.list.defaultName, QStringLiteral("Beta")) << "it holds when the dialog has gone";
}

TEST_F(OptionsPrint, ARefusalIsToldAndTheNameStays)
{
    frame.printers.refusesDefault = true;
    Printers().setCurrentRow(1);
    frame.errors.Expect(
        QStringLiteral("Failed"), QStringLiteral("Beta has failed to be set as the default printer."));
    Click("Cmds(2)");
    EXPECT_EQ(Label("Label9"), QStringLiteral("Alpha"));
    EXPECT_TRUE(form->isVisible());
}

TEST_F(OptionsPrint, TheDialogMayGoWhileThePrintersAreWaitedFor)
{
    Printers().setCurrentRow(1);
    Button_XP* const set = Find<Button_XP>("Cmds(2)");
    frame.printers.whileWaiting = [this] { form.reset(); };
    Q_EMIT set->Click();
    EXPECT_EQ(frame.printers.list.defaultName, QStringLiteral("Beta"));
}

TEST_F(OptionsPrint, TheDialogMayGoWhileTheDefaultIsAskedFor)
{
    Printers().setCurrentRow(1);
    Button_XP* const set = Find<Button_XP>("Cmds(2)");
    frame.errors.Expect(
        QStringLiteral("Success!"), QStringLiteral("Beta has successfully been set as the default printer."));
    const int listed = frame.printers.timesListed;
    frame.printers.whileWaiting = [this, listed] {
        if (frame.printers.timesListed > listed)
            form.reset();
    };
    Q_EMIT set->Click();
    EXPECT_EQ(form, nullptr);
}

TEST_F(OptionsPrint, TheDialogMayGoWhileItsPageIsDrawn)
{
    QComboBox& alignments = Alignments();
    frame.whenPumped = [this] { form.reset(); };
    Q_EMIT alignments.activated(4);
    EXPECT_EQ(form, nullptr);
}

TEST_F(OptionsPrint, WithoutASelectionAPrinterIsAskedFor)
{
    Printers().clearSelection();
    frame.errors.Expect(
        QStringLiteral("Select Printer"), QStringLiteral("Please select a printer from the list."));
    Click("Cmds(2)");
    EXPECT_EQ(frame.printers.defaultsSet, QStringList());
}

TEST(PreviewSizeTest, TheSidesAreDividedByTheSmallestWholeNumberForWhichBothFit)
{
    EXPECT_EQ(PreviewSize({ 800, 1000 }, { 200, 272 }), QSize(200, 250));
    EXPECT_EQ(PreviewSize({ 801, 1000 }, { 200, 272 }), QSize(160, 200));
    EXPECT_EQ(PreviewSize({ 799, 1003 }, { 200, 272 }), QSize(199, 250));
}

TEST(PreviewSizeTest, ASmallPageIsNotEnlarged)
{
    EXPECT_EQ(PreviewSize({ 50, 60 }, { 200, 272 }), QSize(50, 60));
    EXPECT_EQ(PreviewSize({ 0, 0 }, { 200, 272 }), QSize(0, 0));
}

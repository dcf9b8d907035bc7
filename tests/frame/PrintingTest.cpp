// Print Frame in the real frame, over the printers of a real server.
#include "desktop/CupsPrinters.h"
#include "print/cSetDfltPrinter.h"
#include "tests/desktop/PrintServer.h"
#include "tests/frame/PartsOf.h"
#include "tests/testing/FakePlayer.h"
#include "tests/testing/RenderedPdf.h"

#include <QTest>

namespace {

using namespace std::chrono_literals;

class PrintingTest : public testing::Test, protected FrameNeighbours {
protected:
    std::function<void()> whileWaiting = [] {};
    std::chrono::milliseconds longestWait = 1min;
    std::unique_ptr<CupsPrinters> cups;
    std::unique_ptr<PrintServer> server;
    std::unique_ptr<Main> main;

    void Serve(const QList<PrintServer::Queue>& queues)
    {
        server = std::make_unique<PrintServer>(queues);
        ASSERT_EQ(server->Trouble(), QString());
        OpenCapture();
    }
    void OpenCapture()
    {
        cups = std::make_unique<CupsPrinters>([this] { whileWaiting(); }, longestWait);
        main = std::make_unique<Main>(FrameParts { state, clipboard, dialogs, errors, documents, *cups,
            wallpaper, [](QWidget* parent) { return new FakePlayer(parent); } });
        main->show();
        clipboard.picture = QImage(320, 180, QImage::Format_BGR888);
        clipboard.picture.fill(Qt::red);
        main->OpenViewer();
        ASSERT_TRUE(main->IsCommandEnabled(Command::Print));
    }
    void Print() { QTest::mouseClick(main->findChild<QWidget*>(QStringLiteral("Cmds(6)")), Qt::LeftButton); }
    void PrintInVain()
    {
        errors.Expect(QStringLiteral("Print Error!"),
            QStringLiteral("Error with printing. Check printer, cables, and printer settings."));
        Print();
    }
    QString Option(const char* name) const { return server->Jobs().last()[QLatin1String(name)]; }
};

} // namespace

TEST_F(PrintingTest, TheCaptureComesOutOfTheDefaultPrinterInTheMiddleOfItsPage)
{
    Serve({ { .name = "Alpha" }, { .name = "Beta", .isDefault = true, .hasSheets = true } });
    Print();
    const QImage sheet = RenderedPdf(server->Printed("Beta"), 96).convertToFormat(QImage::Format_RGB32);
    QRect picture({}, QSize(320, 180));
    // The page is what the printer reaches; the margins at the right and below are a quarter of an inch
    // wider.
    picture.moveCenter(sheet.rect().center() - QPoint(96, 96) / 4 / 2);
    for (const QPoint inside : { picture.topLeft() + QPoint(3, 3), picture.bottomRight() - QPoint(3, 3) })
        EXPECT_EQ(sheet.pixelColor(inside), QColor(Qt::red));
    for (const QPoint outside : { picture.topLeft() - QPoint(3, 3), picture.bottomRight() + QPoint(3, 3) })
        EXPECT_EQ(sheet.pixelColor(outside), QColor(Qt::white));
    EXPECT_EQ(Option("job-name"), QStringLiteral("TAQ Video Capture Pro"));
    EXPECT_EQ(Option("media"), QStringLiteral("iso_a4_210x297mm"));
}

TEST_F(PrintingTest, TheSettingsOfQualityAndColourReachThePrinter)
{
    Serve({ { .name = "Alpha", .isDefault = true, .hasSheets = true } });
    Print();
    EXPECT_EQ(Option("printer-resolution"), QStringLiteral("600dpi"));
    EXPECT_EQ(Option("print-color-mode"), QStringLiteral("color"));
    for (const auto& [key, value] : { std::pair("HighQ", "False"), std::pair("BW", "True") })
        ASSERT_TRUE(
            state.Settings.SaveSetting(state.SettingsSection, QLatin1String(key), QLatin1String(value)));
    Print();
    EXPECT_EQ(Option("printer-resolution"), QStringLiteral("300dpi"));
    EXPECT_EQ(Option("print-color-mode"), QStringLiteral("monochrome"));
}

TEST_F(PrintingTest, AStoppedPrinterIsToldAndKeepsNothing)
{
    Serve({ { .name = "Alpha", .isDefault = true, .isStopped = true, .hasSheets = true } });
    PrintInVain();
    EXPECT_TRUE(server->Jobs().isEmpty());
}

TEST_F(PrintingTest, WithoutADefaultPrinterTheErrorIsTold)
{
    Serve({});
    PrintInVain();
}

TEST_F(PrintingTest, WithoutAServerTheErrorIsTold)
{
    Serve({ { .name = "Alpha", .isDefault = true } });
    server->Kill();
    PrintInVain();
}

TEST_F(PrintingTest, AServerThatDiesOverThePageIsTold)
{
    Serve({ { .name = "Alpha", .isDefault = true } });
    server->Freeze();
    whileWaiting = [this] { server->Kill(); };
    PrintInVain();
}

TEST_F(PrintingTest, ASilentServerIsToldAndThePageDoesNotComeLater)
{
    longestWait = 500ms;
    Serve({ { .name = "Alpha", .isDefault = true, .hasSheets = true } });
    server->Freeze();
    PrintInVain();
    server->Thaw();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !cups->Installed().names.isEmpty(); }, 20'000));
    EXPECT_TRUE(server->Jobs().isEmpty());
}

TEST_F(PrintingTest, TheDefaultPrinterIsGivenBackAtTheEnd)
{
    Serve({ { .name = "Alpha", .isDefault = true }, { .name = "Beta" } });
    {
        cSetDfltPrinter choice(*cups);
        EXPECT_TRUE(choice.SetPrinterAsDefault(QStringLiteral("Beta")));
        EXPECT_EQ(cups->DefaultName(), QStringLiteral("Beta"));
        EXPECT_FALSE(choice.SetPrinterAsDefault(QStringLiteral("Gamma")));
    }
    EXPECT_EQ(cups->DefaultName(), QStringLiteral("Alpha"));
}

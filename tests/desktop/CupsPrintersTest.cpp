#include "desktop/CupsPrinters.h"

#include "tests/desktop/PrintServer.h"

#include <QCoreApplication>
#include <QPainter>

#include <gtest/gtest.h>

namespace {

using namespace std::chrono_literals;
constexpr Paper A4 { 9, { 210, 297 } };

/// Why a step failed, empty when it did not.
template <typename Step> QString Refusal(Step&& step)
{
    try {
        step();
    } catch (const PrinterError& error) {
        return error.Reason();
    }
    return {};
}

PrintJob Job()
{
    PrintJob job { QStringLiteral("A page"), A4, QImage(746, 1027, QImage::Format_RGB32), { 96, 192 }, 600,
        ColorMode::Color };
    job.page.fill(Qt::white);
    QPainter(&job.page).fillRect(100, 200, 300, 400, Qt::red);
    return job;
}

class CupsPrintersTest : public testing::Test {
protected:
    CupsPrinters printers;

    void Serve(const QList<PrintServer::Queue>& queues)
    {
        server = std::make_unique<PrintServer>(queues);
        ASSERT_EQ(server->Trouble(), QString());
    }
    void ServeTwo()
    {
        Serve({ { .name = "Alpha", .isDefault = true, .hasSheets = true },
            { .name = "Beta", .hasSheets = true } });
    }
    QString Option(const char* name) const { return server->Jobs().last()[QLatin1String(name)]; }

    std::unique_ptr<PrintServer> server;
};

} // namespace

TEST_F(CupsPrintersTest, ThePrintersOfTheServerAreListedWithTheDefault)
{
    ServeTwo();
    const PrinterList list = printers.Installed();
    EXPECT_EQ(list.names, QStringList({ QStringLiteral("Alpha"), QStringLiteral("Beta") }));
    EXPECT_EQ(list.defaultName, QStringLiteral("Alpha"));
    EXPECT_EQ(list.whyNone, QString());
}

TEST_F(CupsPrintersTest, AServerWithoutPrintersSaysThatNoneIsSetUp)
{
    Serve({});
    const PrinterList list = printers.Installed();
    EXPECT_TRUE(list.names.isEmpty());
    EXPECT_EQ(list.defaultName, QString());
    EXPECT_EQ(list.whyNone, QStringLiteral("No printer is set up."));
    EXPECT_EQ(Refusal([&] { printers.Print(Job()); }), QStringLiteral("There is no default printer."));
}

TEST_F(CupsPrintersTest, WithoutAServerThereIsNothingAndItSaysWhy)
{
    ServeTwo();
    server->Kill();
    EXPECT_TRUE(printers.Installed().names.isEmpty());
    EXPECT_EQ(printers.Installed().whyNone, QStringLiteral("The print service is not running."));
    EXPECT_FALSE(printers.SetDefault(QStringLiteral("Beta")));
    EXPECT_EQ(Refusal([&] { printers.Metrics(A4); }), QStringLiteral("The print service is not running."));
    EXPECT_EQ(Refusal([&] { printers.Print(Job()); }), QStringLiteral("The print service is not running."));
}

TEST_F(CupsPrintersTest, TheDefaultIsSetAndKept)
{
    ServeTwo();
    EXPECT_TRUE(printers.SetDefault(QStringLiteral("Beta")));
    EXPECT_EQ(printers.DefaultName(), QStringLiteral("Beta"));
    EXPECT_EQ(CupsPrinters().DefaultName(), QStringLiteral("Beta"));
    EXPECT_TRUE(printers.SetDefault(QStringLiteral("Alpha")));
    EXPECT_EQ(printers.DefaultName(), QStringLiteral("Alpha"));
}

TEST_F(CupsPrintersTest, APrinterThatIsNotThereDoesNotBecomeTheDefault)
{
    ServeTwo();
    EXPECT_FALSE(printers.SetDefault(QStringLiteral("Gamma")));
    EXPECT_FALSE(printers.SetDefault(QString()));
    EXPECT_EQ(printers.DefaultName(), QStringLiteral("Alpha"));
}

TEST_F(CupsPrintersTest, ADefaultThatTheEnvironmentOverrulesIsNoSuccess)
{
    ServeTwo();
    const Variable overruling("LPDEST", "Alpha");
    EXPECT_FALSE(printers.SetDefault(QStringLiteral("Beta")));
}

TEST_F(CupsPrintersTest, TheMarginsOfASheetAreToldInPrinterPixels)
{
    ServeTwo();
    const SheetMetrics sheet = printers.Metrics(A4);
    const int quarterInch = PrinterPixelsPerInch / 4;
    const QSize a4(qRound(210 / 25.4 * PrinterPixelsPerInch), qRound(297 / 25.4 * PrinterPixelsPerInch));
    EXPECT_EQ(sheet.physical, a4);
    EXPECT_EQ(sheet.offset, QPoint(quarterInch, 2 * quarterInch));
    EXPECT_NEAR(sheet.printable.width(), a4.width() - 2 * quarterInch, 1);
    EXPECT_NEAR(sheet.printable.height(), a4.height() - 4 * quarterInch, 1);
}

TEST_F(CupsPrintersTest, APageComesToTheDefaultPrinterWhole)
{
    ServeTwo();
    printers.Print(Job());
    const QByteArray page = server->Printed("Alpha");
    EXPECT_TRUE(page.startsWith("%PDF-"));
    EXPECT_TRUE(page.trimmed().endsWith("%%EOF"));
    EXPECT_EQ(Option("job-name"), QStringLiteral("A page"));
    printers.SetDefault(QStringLiteral("Beta"));
    printers.Print(Job());
    EXPECT_TRUE(server->Printed("Beta").startsWith("%PDF-"));
    EXPECT_EQ(server->Jobs().size(), 2);
}

TEST_F(CupsPrintersTest, APrinterThatTellsNothingOfItselfHasNoMarginsAndTakesThePage)
{
    Serve({ { .name = "Alpha", .isDefault = true } });
    EXPECT_EQ(
        Refusal([&] { printers.Metrics(A4); }), QStringLiteral("The printer does not tell its margins."));
    printers.Print(Job());
    EXPECT_EQ(server->Jobs().size(), 1);
}

TEST_F(CupsPrintersTest, QualityAndColourReachTheJob)
{
    ServeTwo();
    PrintJob job = Job();
    printers.Print(job);
    EXPECT_EQ(Option("print-quality"), QStringLiteral("high"));
    EXPECT_EQ(Option("printer-resolution"), QStringLiteral("600dpi"));
    EXPECT_EQ(Option("print-color-mode"), QStringLiteral("color"));
    job.quality = 300;
    job.color = ColorMode::Monochrome;
    printers.Print(job);
    EXPECT_EQ(Option("print-quality"), QStringLiteral("normal"));
    EXPECT_EQ(Option("printer-resolution"), QStringLiteral("300dpi"));
    EXPECT_EQ(Option("print-color-mode"), QStringLiteral("monochrome"));
}

TEST_F(CupsPrintersTest, NothingMovesOrScalesThePageOnItsWay)
{
    ServeTwo();
    printers.Print(Job());
    EXPECT_EQ(Option("print-scaling"), QStringLiteral("none"));
}

TEST_F(CupsPrintersTest, ThePaperReachesTheJob)
{
    ServeTwo();
    const std::pair<Paper, const char*> papers[] { { A4, "iso_a4_210x297mm" },
        { { 11, { 148, 210 } }, "iso_a5_148x210mm" }, { { 8, { 297, 420 } }, "iso_a3_297x420mm" },
        { { Paper::UserDefined, { 100, 100 } }, "custom_100x100mm_100x100mm" } };
    for (const auto& [paper, media] : papers) {
        PrintJob job = Job();
        job.paper = paper;
        printers.Print(job);
        EXPECT_EQ(Option("media"), QLatin1String(media));
    }
}

TEST_F(CupsPrintersTest, AStoppedPrinterRefusesThePageAndKeepsNothingOfIt)
{
    Serve({ { .name = "Alpha", .isDefault = true, .isStopped = true } });
    EXPECT_EQ(Refusal([&] { printers.Print(Job()); }), QStringLiteral("The printer \"Alpha\" is stopped."));
    EXPECT_TRUE(server->Jobs().isEmpty());
}

TEST_F(CupsPrintersTest, APrinterThatTakesNoJobsRefusesThePage)
{
    Serve({ { .name = "Alpha", .isDefault = true, .takesJobs = false } });
    EXPECT_EQ(Refusal([&] { printers.Print(Job()); }), QStringLiteral("The printer \"Alpha\" is stopped."));
    EXPECT_TRUE(server->Jobs().isEmpty());
}

TEST_F(CupsPrintersTest, ASilentServerIsGivenUp)
{
    ServeTwo();
    server->Freeze();
    int rounds = 0;
    CupsPrinters hasty([&] { ++rounds; }, 300ms);
    const QString silent = QStringLiteral("The print service does not answer.");
    EXPECT_EQ(hasty.Installed().whyNone, silent);
    EXPECT_GT(rounds, 0) << "windows could be painted meanwhile";
    EXPECT_FALSE(hasty.SetDefault(QStringLiteral("Beta")));
    EXPECT_EQ(Refusal([&] { hasty.Metrics(A4); }), silent);
    EXPECT_EQ(Refusal([&] { hasty.Print(Job()); }), silent);
}

TEST_F(CupsPrintersTest, AServerThatDiesOverAPageIsTold)
{
    ServeTwo();
    server->Freeze();
    CupsPrinters watched([&] { server->Kill(); });
    EXPECT_NE(Refusal([&] { watched.Print(Job()); }), QString());
}

TEST_F(CupsPrintersTest, APaperWithoutSizeIsRefused)
{
    ServeTwo();
    PrintJob job = Job();
    job.paper.size = {};
    EXPECT_EQ(Refusal([&] { printers.Print(job); }), QStringLiteral("There is no paper of this size."));
    EXPECT_TRUE(server->Jobs().isEmpty());
}

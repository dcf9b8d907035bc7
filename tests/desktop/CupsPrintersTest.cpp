#include "desktop/CupsPrinters.h"

#include "desktop/CupsServer.h"
#include "desktop/PagePdf.h"
#include "tests/desktop/LossyLine.h"
#include "tests/desktop/PrintServer.h"

#include <QCoreApplication>
#include <QPainter>

#include <future>
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

/// On a thread of its own: each looks for its server once.
template <typename Question> auto Aside(Question question)
{
    return std::async(std::launch::async, question).get();
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
    CupsPrinters printers { {}, 1min };

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
    EXPECT_TRUE(list.isKnown);
    EXPECT_EQ(list.chosenDefault, QString()) << "it is the server's";
}

TEST_F(CupsPrintersTest, AServerWithoutPrintersSaysThatNoneIsSetUp)
{
    Serve({});
    const PrinterList list = printers.Installed();
    EXPECT_TRUE(list.names.isEmpty());
    EXPECT_EQ(list.defaultName, QString());
    EXPECT_EQ(list.whyNone, QStringLiteral("No printer is set up."));
    EXPECT_TRUE(list.isKnown);
    EXPECT_EQ(Refusal([&] { printers.Print(Job()); }), QStringLiteral("There is no default printer."));
}

TEST_F(CupsPrintersTest, WithoutAServerThereIsNothingAndItSaysWhy)
{
    ServeTwo();
    server->Kill();
    EXPECT_TRUE(printers.Installed().names.isEmpty());
    EXPECT_EQ(printers.Installed().whyNone, QStringLiteral("The print service is not running."));
    EXPECT_FALSE(printers.Installed().isKnown);
    EXPECT_FALSE(printers.SetDefault(QStringLiteral("Beta")));
    EXPECT_FALSE(printers.ForgetDefault());
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

TEST_F(CupsPrintersTest, AChoiceThatIsForgottenLeavesTheServersDefaultAndTheUsersOtherChoices)
{
    ServeTwo();
    server->Choose("Dest Alpha job-priority=70");
    EXPECT_EQ(printers.DefaultName(), QStringLiteral("Alpha"));
    ASSERT_TRUE(printers.SetDefault(QStringLiteral("Beta")));
    EXPECT_EQ(printers.Installed().chosenDefault, QStringLiteral("Beta"));
    EXPECT_TRUE(printers.ForgetDefault());
    EXPECT_EQ(printers.Installed().chosenDefault, QString());
    EXPECT_EQ(printers.DefaultName(), QStringLiteral("Alpha"));
    printers.Print(Job());
    EXPECT_EQ(Option("job-priority"), QStringLiteral("70"));
}

TEST_F(CupsPrintersTest, TheServersDefaultChosenByTheUserIsHisChoice)
{
    ServeTwo();
    ASSERT_TRUE(printers.SetDefault(QStringLiteral("Alpha")));
    EXPECT_EQ(printers.Installed().chosenDefault, QStringLiteral("Alpha"));
}

TEST_F(CupsPrintersTest, AChosenSetOfOptionsIsToldAndChosenAgain)
{
    ServeTwo();
    server->Choose("Default Alpha/duplex job-priority=70");
    const QString duplex = QStringLiteral("Alpha/duplex");
    EXPECT_EQ(printers.DefaultName(), QStringLiteral("Alpha"));
    EXPECT_EQ(printers.Installed().chosenDefault, duplex);
    ASSERT_TRUE(printers.SetDefault(QStringLiteral("Beta")));
    EXPECT_TRUE(printers.SetDefault(duplex));
    EXPECT_EQ(printers.Installed().chosenDefault, duplex);
    EXPECT_FALSE(printers.SetDefault(QStringLiteral("Alpha/other")));
    EXPECT_EQ(printers.Installed().chosenDefault, duplex);
    printers.Print(Job());
    EXPECT_EQ(Option("job-priority"), QStringLiteral("70"));
}

TEST_F(CupsPrintersTest, APrinterThatIsNotThereDoesNotBecomeTheDefault)
{
    ServeTwo();
    EXPECT_FALSE(printers.SetDefault(QStringLiteral("Gamma")));
    EXPECT_FALSE(printers.SetDefault(QString()));
    EXPECT_EQ(printers.DefaultName(), QStringLiteral("Alpha"));
}

TEST_F(CupsPrintersTest, ADefaultThatTheEnvironmentOverrulesIsNoSuccessAndLeavesNothing)
{
    ServeTwo();
    {
        const Variable overruling("LPDEST", "Alpha");
        EXPECT_FALSE(printers.SetDefault(QStringLiteral("Beta")));
    }
    EXPECT_EQ(printers.DefaultName(), QStringLiteral("Alpha"));
    EXPECT_EQ(printers.Installed().chosenDefault, QString());
}

TEST_F(CupsPrintersTest, ADefaultThatNobodyWaitsForAnyMoreIsNotSet)
{
    ServeTwo();
    std::stop_source givenUp;
    givenUp.request_stop();
    EXPECT_FALSE(
        Aside([&] { return CupsServer(1min).SetDefault(QStringLiteral("Beta"), givenUp.get_token()); }));
    EXPECT_EQ(printers.DefaultName(), QStringLiteral("Alpha"));
    EXPECT_EQ(printers.Installed().chosenDefault, QString());
}

TEST_F(CupsPrintersTest, TheMarginsOfASheetAreToldInPrinterPixels)
{
    ServeTwo();
    const SheetMetrics sheet = printers.Metrics(A4);
    const int quarterInch = PrinterPixelsPerInch / 4;
    const QSize a4(qRound(210 / 25.4 * PrinterPixelsPerInch), qRound(297 / 25.4 * PrinterPixelsPerInch));
    EXPECT_EQ(sheet.physical, a4);
    EXPECT_EQ(sheet.offset, QPoint(quarterInch, 3 * quarterInch)) << "left and top";
    EXPECT_NEAR(sheet.printable.width(), a4.width() - (1 + 2) * quarterInch, 1) << "right";
    EXPECT_NEAR(sheet.printable.height(), a4.height() - (3 + 4) * quarterInch, 1) << "bottom";
}

TEST_F(CupsPrintersTest, OfAPaperOfTheUsersOwnThePrinterTellsNoMargins)
{
    ServeTwo();
    EXPECT_EQ(Refusal([&] {
        printers.Metrics({ Paper::UserDefined, { 100, 100 } });
    }),
        QStringLiteral("The printer does not tell its margins."));
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

TEST_F(CupsPrintersTest, WhatTheUserChoseForThePrinterHoldsUnlessThePageSaysOtherwise)
{
    ServeTwo();
    server->Choose("Dest Alpha job-priority=70 print-quality=3");
    printers.Print(Job());
    EXPECT_EQ(Option("job-priority"), QStringLiteral("70"));
    EXPECT_EQ(Option("print-quality"), QStringLiteral("high"));
}

TEST_F(CupsPrintersTest, ThePaperReachesTheJob)
{
    ServeTwo();
    const std::pair<Paper, const char*> papers[] { { A4, "iso_a4_210x297mm" },
        { { 11, { 148, 210 } }, "iso_a5_148x210mm" }, { { 8, { 297, 420 } }, "iso_a3_297x420mm" },
        { { 12, { 250, 354 } }, "custom_250x354mm_250x354mm" }, { { 13, { 182, 257 } }, "jis_b5_182x257mm" },
        { { 15, { 215, 275 } }, "custom_215x275mm_215x275mm" },
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
    EXPECT_FALSE(hasty.Installed().isKnown);
    EXPECT_GT(rounds, 0) << "windows could be painted meanwhile";
    EXPECT_FALSE(hasty.SetDefault(QStringLiteral("Beta")));
    EXPECT_EQ(Refusal([&] { hasty.Metrics(A4); }), silent);
    EXPECT_EQ(Refusal([&] { hasty.Print(Job()); }), silent);
}

TEST_F(CupsPrintersTest, ALackOfMemoryIsARefusal)
{
    ServeTwo();
    server->Freeze();
    CupsPrinters starved([] { throw std::bad_alloc(); }, 1min);
    const QString reason = QStringLiteral("There is not enough memory.");
    EXPECT_EQ(starved.Installed().whyNone, reason);
    EXPECT_FALSE(starved.SetDefault(QStringLiteral("Beta")));
    EXPECT_EQ(Refusal([&] { starved.Metrics(A4); }), reason);
    EXPECT_EQ(Refusal([&] { starved.Print(Job()); }), reason);
}

TEST_F(CupsPrintersTest, AServerThatDiesOverItsListHasNotSaidThatThereIsNoPrinter)
{
    ServeTwo();
    server->Freeze();
    CupsPrinters watched([&] { server->Kill(); });
    const PrinterList list = watched.Installed();
    EXPECT_FALSE(list.isKnown);
    EXPECT_NE(list.whyNone, QStringLiteral("No printer is set up."));
}

TEST_F(CupsPrintersTest, AServerThatDiesOverAPageIsTold)
{
    ServeTwo();
    server->Freeze();
    CupsPrinters watched([&] { server->Kill(); });
    EXPECT_NE(Refusal([&] { watched.Print(Job()); }), QString());
}

TEST_F(CupsPrintersTest, AJobIsTakenBackWhereItWasSentWhateverIsTheDefaultByThen)
{
    ServeTwo();
    server->Choose("Dest Alpha job-hold-until=indefinite");
    const auto sent = Aside([] { return CupsServer(1min).Print(Job(), PagePdf(Job()), {}); });
    EXPECT_EQ(Option("job-state"), QStringLiteral("pending-held"));
    const Variable noDefault("LPDEST", "Gamma");
    Aside([&] { CupsServer(1min).Cancel(sent); });
    EXPECT_EQ(Option("job-state"), QStringLiteral("canceled"));
}

TEST_F(CupsPrintersTest, AJobWhoseAnswerGotLostIsTakenBack)
{
    ServeTwo();
    const LossyLine line(qEnvironmentVariable("CUPS_SERVER"));
    const Variable overTheLine("CUPS_SERVER", line.Address());
    CupsPrinters lossy([] { QCoreApplication::processEvents(); }, 1min);
    EXPECT_NE(Refusal([&] { lossy.Print(Job()); }), QString());
    ASSERT_TRUE(line.HasLost());
    ASSERT_EQ(server->Jobs().size(), 1);
    EXPECT_EQ(Option("job-state"), QStringLiteral("canceled"));
}

TEST_F(CupsPrintersTest, APaperWithoutSizeIsRefused)
{
    ServeTwo();
    PrintJob job = Job();
    job.paper.size = {};
    EXPECT_EQ(Refusal([&] { printers.Print(job); }), QStringLiteral("There is no paper of this size."));
    EXPECT_TRUE(server->Jobs().isEmpty());
}

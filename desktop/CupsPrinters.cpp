#include "desktop/CupsPrinters.h"

#include "desktop/AskAside.h"
#include "desktop/CupsServer.h"
#include "desktop/PagePdf.h"

#include <new>
#include <utility>

namespace {

struct NoAnswer : PrinterError {
    NoAnswer()
        : PrinterError(QStringLiteral("The print service does not answer."))
    {
    }
};

constexpr auto Forget = [](const auto&) {};

/// The server's answer. A lack of memory on the way is a refusal like any other.
template <typename Question, typename TooLate>
auto Ask(const Patience& patience, Question question, TooLate tooLate)
{
    try {
        return AskAside<NoAnswer>(patience, std::move(question), std::move(tooLate));
    } catch (const std::bad_alloc&) {
        throw PrinterError(QStringLiteral("There is not enough memory."));
    }
}

} // namespace

CupsPrinters::CupsPrinters(std::function<void()> whileWaiting, std::chrono::milliseconds longestWait)
    : whileWaiting_(std::move(whileWaiting))
    , longestWait_(longestWait)
{
}

PrinterList CupsPrinters::Installed()
{
    try {
        return Ask(
            { longestWait_, whileWaiting_ },
            [longest = longestWait_](const std::stop_token&) { return CupsServer(longest).Installed(); },
            Forget);
    } catch (const PrinterError& error) {
        return { {}, {}, error.Reason(), {}, false };
    }
}

bool CupsPrinters::SetDefault(const QString& name)
{
    return IsDone([name](CupsServer& server, const std::stop_token& givenUp) {
        return server.SetDefault(name, givenUp);
    });
}

bool CupsPrinters::ForgetDefault()
{
    return IsDone([](CupsServer& server, const std::stop_token&) { return server.ForgetDefault(); });
}

SheetMetrics CupsPrinters::Metrics(const Paper& paper)
{
    return Ask(
        { longestWait_, whileWaiting_ },
        [longest = longestWait_, paper](
            const std::stop_token&) { return CupsServer(longest).Metrics(paper); },
        Forget);
}

void CupsPrinters::Print(const PrintJob& job)
{
    const std::chrono::milliseconds longest = 2 * longestWait_;
    const QByteArray document = PagePdf(job); // not aside: what is given up there may outlast the program
    Ask(
        { longest, whileWaiting_ },
        [longest, job, document](
            const std::stop_token& givenUp) { return CupsServer(longest).Print(job, document, givenUp); },
        [longest](const CupsServer::SentJob& sent) { CupsServer(longest).Cancel(sent); });
}

/// Whether the server carried out a change.
bool CupsPrinters::IsDone(const Change& change)
{
    try {
        return Ask(
            { longestWait_, whileWaiting_ },
            [longest = longestWait_, change](const std::stop_token& givenUp) {
                CupsServer server(longest);
                return change(server, givenUp);
            },
            Forget);
    } catch (const PrinterError&) {
        return false;
    }
}

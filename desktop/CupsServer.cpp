#include "desktop/CupsServer.h"

#include "desktop/CupsChoice.h"

#include <algorithm>
#include <array>

namespace {

constexpr int HighQuality = 600; // dots to the inch
constexpr int HundredthsPerMillimetre = 100;
constexpr auto LastSuccess = IPP_STATUS_OK_EVENTS_COMPLETE;
constexpr double HundredthsPerInch = 2540;

QString Name(const cups_dest_t& destination)
{
    return QString::fromUtf8(destination.name);
}

/// A printer, and where one is meant one of the user's sets of options for it: "printer/set".
struct Choice {
    explicit Choice(const QByteArray& text)
        : printer(text.split('/').first())
        , set(text.mid(printer.size() + 1))
    {
    }
    explicit Choice(const cups_dest_t& destination)
        : printer(destination.name)
        , set(destination.instance)
    {
    }
    bool operator==(const Choice&) const = default;
    const char* Set() const { return set.isEmpty() ? nullptr : set.constData(); }

    QByteArray printer;
    QByteArray set;
};

/// What a job is to be, in the server's own words.
class JobOptions {
public:
    /// Begins with what the user has chosen for all jobs of the printer.
    explicit JobOptions(const cups_dest_t& destination)
    {
        for (int i = 0; i < destination.num_options; ++i)
            Add(destination.options[i].name, destination.options[i].value);
    }
    JobOptions(const JobOptions&) = delete;
    JobOptions& operator=(const JobOptions&) = delete;
    ~JobOptions() { cupsFreeOptions(count_, rows_); }
    void Add(const char* name, const QByteArray& value)
    {
        count_ = cupsAddOption(name, value.constData(), count_, &rows_);
    }
    int Count() const { return count_; }
    cups_option_t* Rows() const { return rows_; }

private:
    int count_ = 0;
    cups_option_t* rows_ = nullptr;
};

/// Every printer of the server.
class Destinations {
public:
    explicit Destinations(http_t* http)
        : count_(cupsGetDests2(http, &rows_))
    {
    }
    Destinations(const Destinations&) = delete;
    Destinations& operator=(const Destinations&) = delete;
    ~Destinations() { cupsFreeDests(count_, rows_); }
    const cups_dest_t* begin() const { return rows_; }
    const cups_dest_t* end() const { return rows_ + count_; }
    /// The server broke off; asked just after the list was made.
    bool IsUnknown() const
    {
        return count_ == 0 && cupsLastError() > LastSuccess && cupsLastError() != IPP_STATUS_ERROR_NOT_FOUND;
    }
    bool Has(const Choice& choice) const
    {
        return cupsGetDest(choice.printer.constData(), choice.Set(), count_, rows_);
    }
    /// Keeps this as the user's choice, or none when it is empty.
    bool StoreChoice(http_t* http, const Choice& choice)
    {
        for (int i = 0; i < count_; ++i)
            rows_[i].is_default = 0;
        cupsSetDefaultDest(choice.printer.constData(), choice.Set(), count_, rows_);
        return cupsSetDests2(http, count_, rows_) == 0;
    }

private:
    cups_dest_t* rows_ = nullptr;
    int count_ = 0;
};

/// The user's own jobs that wait for a printer.
class WaitingJobs {
public:
    WaitingJobs(http_t* http, const char* printer)
        : count_(cupsGetJobs2(http, &rows_, printer, 1, CUPS_WHICHJOBS_ACTIVE))
    {
    }
    WaitingJobs(const WaitingJobs&) = delete;
    WaitingJobs& operator=(const WaitingJobs&) = delete;
    ~WaitingJobs() { cupsFreeJobs(std::max(count_, 0), rows_); }
    const cups_job_t* begin() const { return rows_; }
    const cups_job_t* end() const { return rows_ + std::max(count_, 0); }

private:
    cups_job_t* rows_ = nullptr;
    int count_ = 0;
};

bool TakesJobs(const cups_dest_t& destination)
{
    const auto option = [&](const char* name) {
        return QByteArray(cupsGetOption(name, destination.num_options, destination.options));
    };
    return option("printer-state").toInt() != IPP_PSTATE_STOPPED
        && option("printer-is-accepting-jobs") != "false";
}

QByteArray MediaName(const Paper& paper)
{
    const int width = paper.size.width() * HundredthsPerMillimetre;
    const int height = paper.size.height() * HundredthsPerMillimetre;
    std::array<char, 128> custom {};
    pwgFormatSizeName(custom.data(), custom.size(), "custom", nullptr, width, height, "mm");
    const pwg_media_t* known = paper.code == Paper::UserDefined ? nullptr : pwgMediaForSize(width, height);
    return known && known->pwg ? known->pwg : custom.data();
}

int PrinterPixels(int hundredths)
{
    return qRound(hundredths / HundredthsPerInch * PrinterPixelsPerInch);
}

} // namespace

CupsServer::CupsServer(std::chrono::milliseconds longestWait)
    : longestWait_(longestWait)
{
    // A server that wants a password would be asked for on the terminal.
    cupsSetPasswordCB2(
        [](const char*, http_t*, const char*, const char*, void*) -> const char* { return nullptr; },
        nullptr);
    http_.reset(httpConnect2(
        cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1, int(longestWait.count()), nullptr));
    if (!http_)
        throw PrinterError(QStringLiteral("The print service is not running."));
    httpSetTimeout(
        http_.get(), std::chrono::duration<double>(longestWait).count(), [](http_t*, void*) { return 0; },
        nullptr);
}

PrinterError CupsServer::Refusal()
{
    return PrinterError(
        QStringLiteral("The print service refused: %1").arg(QString::fromUtf8(cupsLastErrorString())));
}

/// Nobody is left to hear of it.
void CupsServer::FailIf(const std::stop_token& givenUp)
{
    if (givenUp.stop_requested())
        throw PrinterError(QStringLiteral("The page was given up."));
}

PrinterList CupsServer::Installed()
{
    PrinterList list;
    const Destinations destinations(http_.get());
    if (destinations.IsUnknown())
        throw Refusal();
    for (const cups_dest_t& destination : destinations)
        if (!list.names.contains(Name(destination))) // once, however many sets of options it has
            list.names << Name(destination);
    // The list marks no default where the user has options for the server's.
    if (const Destination current = Find(nullptr))
        list.defaultName = Name(*current);
    const QByteArray chosen = CupsChoice();
    if (!list.defaultName.isEmpty() && Choice(chosen).printer == list.defaultName.toUtf8())
        list.chosenDefault = QString::fromUtf8(chosen);
    if (list.names.isEmpty())
        list.whyNone = QStringLiteral("No printer is set up.");
    return list;
}

bool CupsServer::SetDefault(const QString& name, const std::stop_token& givenUp)
{
    const Choice before(CupsChoice());
    const Choice wanted(name.toUtf8());
    Destinations destinations(http_.get());
    if (!destinations.Has(wanted) || !destinations.StoreChoice(http_.get(), wanted))
        return false;
    const Destination current = Find(nullptr);
    if (current && Choice(*current) == wanted && !givenUp.stop_requested())
        return true;
    destinations.StoreChoice(http_.get(), before); // the environment overrules it, or nobody waits for it
    return false;
}

bool CupsServer::ForgetDefault()
{
    Destinations destinations(http_.get());
    // A list that did not come would be stored as an empty one, and the user's options with it.
    return !destinations.IsUnknown() && destinations.StoreChoice(http_.get(), Choice(QByteArray()));
}

CupsServer::Destination CupsServer::Find(const char* name)
{
    return Destination(cupsGetNamedDest(http_.get(), name, nullptr));
}

CupsServer::Queue CupsServer::DefaultQueue()
{
    Destination destination = Find(nullptr);
    if (!destination)
        throw PrinterError(QStringLiteral("There is no default printer."));
    Details details(cupsCopyDestInfo(http_.get(), destination.get()));
    if (!details)
        throw Refusal();
    return { std::move(destination), std::move(details) };
}

SheetMetrics CupsServer::Metrics(const Paper& paper)
{
    const Queue queue = DefaultQueue();
    const int width = paper.size.width() * HundredthsPerMillimetre;
    const int height = paper.size.height() * HundredthsPerMillimetre;
    cups_size_t sheet {};
    if (!cupsGetDestMediaBySize(http_.get(), queue.destination.get(), queue.details.get(), width, height,
            CUPS_MEDIA_FLAGS_DEFAULT, &sheet))
        throw PrinterError(QStringLiteral("The printer does not tell its margins."));
    return { { PrinterPixels(width), PrinterPixels(height) },
        { PrinterPixels(sheet.left), PrinterPixels(sheet.top) },
        { PrinterPixels(width - sheet.left - sheet.right),
            PrinterPixels(height - sheet.top - sheet.bottom) } };
}

CupsServer::SentJob CupsServer::Print(
    const PrintJob& job, const QByteArray& document, const std::stop_token& givenUp)
{
    const Queue queue = DefaultQueue();
    if (!TakesJobs(*queue.destination))
        throw PrinterError(QStringLiteral("The printer \"%1\" is stopped.").arg(Name(*queue.destination)));
    FailIf(givenUp);
    const int number = Create(queue, job);
    try {
        Send(queue, number, document, givenUp);
    } catch (const PrinterError&) {
        cupsCancelDestJob(http_.get(), queue.destination.get(), number);
        throw;
    }
    return { queue.destination->name, number };
}

int CupsServer::Create(const Queue& queue, const PrintJob& job)
{
    JobOptions options(*queue.destination);
    options.Add(CUPS_MEDIA, MediaName(job.paper));
    options.Add(
        CUPS_PRINT_QUALITY, job.quality >= HighQuality ? CUPS_PRINT_QUALITY_HIGH : CUPS_PRINT_QUALITY_NORMAL);
    options.Add(CUPS_PRINT_COLOR_MODE,
        job.color == ColorMode::Color ? CUPS_PRINT_COLOR_MODE_COLOR : CUPS_PRINT_COLOR_MODE_MONOCHROME);
    options.Add("print-scaling", "none"); // the page stands where it is told to
    const QByteArray resolution = QByteArray::number(job.quality) + "dpi";
    if (cupsCheckDestSupported(http_.get(), queue.destination.get(), queue.details.get(),
            "printer-resolution", resolution.constData()))
        options.Add("printer-resolution", resolution);
    int number = 0;
    if (cupsCreateDestJob(http_.get(), queue.destination.get(), queue.details.get(), &number,
            job.title.toUtf8().constData(), options.Count(), options.Rows())
        > LastSuccess) {
        const PrinterError refusal = Refusal();
        if (httpError(http_.get()) != 0) // no refusal of the server's: the line broke
            CancelEmpty(queue.destination->name, job.title);
        throw refusal;
    }
    return number;
}

/// When it is the server's answer that got lost, there is a job that would wait in the queue for its page.
void CupsServer::CancelEmpty(const char* printer, const QString& title)
{
    try {
        CupsServer server(longestWait_);
        for (const cups_job_t& job : WaitingJobs(server.http_.get(), printer))
            if (job.size == 0 && title == QString::fromUtf8(job.title))
                server.Cancel({ printer, job.id });
    } catch (const PrinterError&) {
        return; // the server drops a job without a page in the end
    }
}

void CupsServer::Send(const Queue& queue, int job, const QByteArray& document, const std::stop_token& givenUp)
{
    constexpr int IsLast = 1;
    FailIf(givenUp);
    if (cupsStartDestDocument(http_.get(), queue.destination.get(), queue.details.get(), job, "page",
            CUPS_FORMAT_PDF, 0, nullptr, IsLast)
            != HTTP_STATUS_CONTINUE
        || cupsWriteRequestData(http_.get(), document.constData(), size_t(document.size()))
            != HTTP_STATUS_CONTINUE
        || cupsFinishDestDocument(http_.get(), queue.destination.get(), queue.details.get()) > LastSuccess)
        throw Refusal();
}

void CupsServer::Cancel(const SentJob& job)
{
    if (const Destination destination = Find(job.printer.constData()))
        cupsCancelDestJob(http_.get(), destination.get(), job.number);
}

#include "desktop/CupsServer.h"

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

/// What a job is to be, in the server's own words.
class JobOptions {
public:
    JobOptions() = default;
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
    bool Has(const QByteArray& name) const { return cupsGetDest(name.constData(), nullptr, count_, rows_); }
    bool StoreDefault(http_t* http, const QByteArray& name)
    {
        cupsSetDefaultDest(name.constData(), nullptr, count_, rows_);
        return cupsSetDests2(http, count_, rows_) == 0;
    }

private:
    cups_dest_t* rows_ = nullptr;
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

void CupsServer::FailAsRefused()
{
    throw PrinterError(
        QStringLiteral("The print service refused: %1").arg(QString::fromUtf8(cupsLastErrorString())));
}

PrinterList CupsServer::Installed()
{
    PrinterList list;
    for (const cups_dest_t& destination : Destinations(http_.get())) {
        if (!list.names.contains(Name(destination))) // once, however many sets of options it has
            list.names << Name(destination);
        if (destination.is_default)
            list.defaultName = Name(destination);
    }
    if (list.names.isEmpty())
        list.whyNone = QStringLiteral("No printer is set up.");
    return list;
}

bool CupsServer::SetDefault(const QString& name)
{
    Destinations destinations(http_.get());
    return destinations.Has(name.toUtf8()) && destinations.StoreDefault(http_.get(), name.toUtf8())
        && Name(*Default()) == name;
}

CupsServer::Destination CupsServer::Default()
{
    Destination found(cupsGetNamedDest(http_.get(), nullptr, nullptr));
    if (!found)
        throw PrinterError(QStringLiteral("There is no default printer."));
    return found;
}

CupsServer::Queue CupsServer::DefaultQueue()
{
    Destination destination = Default();
    Details details(cupsCopyDestInfo(http_.get(), destination.get()));
    if (!details)
        FailAsRefused();
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

int CupsServer::Print(const PrintJob& job, const QByteArray& document)
{
    const Queue queue = DefaultQueue();
    if (!TakesJobs(*queue.destination))
        throw PrinterError(QStringLiteral("The printer \"%1\" is stopped.").arg(Name(*queue.destination)));
    const int number = Create(queue, job);
    try {
        Send(queue, number, document);
    } catch (const PrinterError&) {
        cupsCancelDestJob(http_.get(), queue.destination.get(), number);
        throw;
    }
    return number;
}

int CupsServer::Create(const Queue& queue, const PrintJob& job)
{
    JobOptions options;
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
        > LastSuccess)
        FailAsRefused();
    return number;
}

void CupsServer::Send(const Queue& queue, int job, const QByteArray& document)
{
    constexpr int IsLast = 1;
    if (cupsStartDestDocument(http_.get(), queue.destination.get(), queue.details.get(), job, "page",
            CUPS_FORMAT_PDF, 0, nullptr, IsLast)
            != HTTP_STATUS_CONTINUE
        || cupsWriteRequestData(http_.get(), document.constData(), size_t(document.size()))
            != HTTP_STATUS_CONTINUE
        || cupsFinishDestDocument(http_.get(), queue.destination.get(), queue.details.get()) > LastSuccess)
        FailAsRefused();
}

void CupsServer::Cancel(int job)
{
    cupsCancelDestJob(http_.get(), Default().get(), job);
}

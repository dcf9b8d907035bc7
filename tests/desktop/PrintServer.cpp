#include "tests/desktop/PrintServer.h"

#include "tests/testing/Files.h"

#include <QTest>

#include <algorithm>
#include <array>
#include <cups/cups.h>
#include <memory>
#include <signal.h>
#include <utility>

namespace {

constexpr int Patience = 20'000; // milliseconds
// The server's helpers run as another user.
constexpr QFile::Permissions Everybody = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner
    | QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther;
constexpr auto Folders = { "root/ppd", "spool/tmp", "cache", "state", "log", "client", "printed" };

// Everybody on this machine may do everything, and jobs are remembered.
constexpr auto Rules = R"(Listen %1/state/socket
Browsing Off
WebInterface No
DefaultAuthType None
PreserveJobHistory Yes
<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  JobPrivateAccess all
  JobPrivateValues none
  SubscriptionPrivateAccess all
  SubscriptionPrivateValues none
  <Limit All>
    Order deny,allow
  </Limit>
</Policy>
)";

constexpr auto Places = R"(FileDevice Yes
Sandboxing relaxed
ServerRoot %1/root
RequestRoot %1/spool
TempDir %1/spool/tmp
CacheDir %1/cache
StateDir %1/state
AccessLog %1/log/access
ErrorLog %1/log/error
PageLog %1/log/page
)";

constexpr auto QueueLines = R"(<%1 %2>
DeviceURI file://%3/printed/%2
State %4
Accepting %5
</%1>
)";

struct DeleteAnswer {
    void operator()(ipp_t* answer) const { ippDelete(answer); }
};
using Answer = std::unique_ptr<ipp_t, DeleteAnswer>;

struct CloseLine {
    void operator()(http_t* line) const { httpClose(line); }
};

std::unique_ptr<http_t, CloseLine> Connect(const QByteArray& socket)
{
    return std::unique_ptr<http_t, CloseLine>(httpConnect2(
        socket.constData(), 0, nullptr, AF_UNSPEC, HTTP_ENCRYPTION_IF_REQUESTED, 1, 1000, nullptr));
}

} // namespace

Variable::Variable(const char* name, const QByteArray& value)
    : name_(name)
    , wasSet_(qEnvironmentVariableIsSet(name))
    , before_(qgetenv(name))
{
    qputenv(name_, value);
}

Variable::~Variable()
{
    if (wasSet_)
        qputenv(name_, before_);
    else
        qunsetenv(name_);
}

PrintServer::PrintServer(const QList<Queue>& queues)
{
    trouble_ = Start(queues);
}

PrintServer::~PrintServer()
{
    Kill();
}

void PrintServer::Configure(const QList<Queue>& queues) const
{
    for (const char* name : Folders)
        QDir(folder_.path()).mkpath(QLatin1String(name));
    MakeFile(
        Path(QStringLiteral("root/cupsd.conf")), QString::fromLatin1(Rules).arg(folder_.path()).toUtf8());
    MakeFile(Path(QStringLiteral("root/cups-files.conf")),
        QString::fromLatin1(Places).arg(folder_.path()).toUtf8());
    const QString filter = Path(QStringLiteral("filter"));
    MakeFile(filter, "#!/bin/sh\nexec cat ${6:+\"$6\"}\n");
    QFile::setPermissions(filter, Everybody);
    QFile::setPermissions(folder_.path(), Everybody);
    const QByteArray sheets =
        FileBytes(QStringLiteral(SOURCE_DIR "/tests/desktop/sheets.ppd")).replace("FILTER", filter.toUtf8());
    QString lines;
    for (const Queue& queue : queues) {
        const QLatin1String name(queue.name);
        lines +=
            QString::fromLatin1(QueueLines)
                .arg(queue.isDefault ? QStringLiteral("DefaultPrinter") : QStringLiteral("Printer"), name,
                    folder_.path(), queue.isStopped ? QStringLiteral("Stopped") : QStringLiteral("Idle"),
                    queue.takesJobs ? QStringLiteral("Yes") : QStringLiteral("No"));
        if (queue.hasSheets)
            MakeFile(Path(QStringLiteral("root/ppd/") + name + QStringLiteral(".ppd")), sheets);
    }
    MakeFile(Path(QStringLiteral("root/printers.conf")), lines.toUtf8());
}

QString PrintServer::Start(const QList<Queue>& queues)
{
    Configure(queues);
    server_.setProcessChannelMode(QProcess::MergedChannels);
    server_.start(QStringLiteral("/usr/sbin/cupsd"),
        { QStringLiteral("-f"), QStringLiteral("-c"), Path(QStringLiteral("root/cupsd.conf")),
            QStringLiteral("-s"), Path(QStringLiteral("root/cups-files.conf")) });
    if (!server_.waitForStarted())
        return QStringLiteral("cupsd cannot be started: ") + server_.errorString();
    const QByteArray socket = Path(QStringLiteral("state/socket")).toUtf8();
    if (!QTest::qWaitFor([&] { return Connect(socket) != nullptr; }, Patience))
        return QStringLiteral("the print server does not answer: ")
            + QString::fromUtf8(server_.readAll() + FileBytes(Path(QStringLiteral("log/error"))));
    return {};
}

/// Every job's attributes, as the server tells them to whoever asks.
QList<QMap<QString, QString>> PrintServer::Jobs() const
{
    const auto line = Connect(Path(QStringLiteral("state/socket")).toUtf8());
    ipp_t* request = ippNewRequest(IPP_OP_GET_JOBS);
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr, "ipp://localhost/");
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "which-jobs", nullptr, "all");
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes", nullptr, "all");
    const Answer answer(cupsDoRequest(line.get(), request, "/"));
    QList<QMap<QString, QString>> jobs;
    bool isWithin = false;
    for (ipp_attribute_t* row = ippFirstAttribute(answer.get()); row; row = ippNextAttribute(answer.get())) {
        const bool isOfJob = ippGetGroupTag(row) == IPP_TAG_JOB && ippGetName(row);
        if (isOfJob && !std::exchange(isWithin, true))
            jobs.emplaceBack();
        if (!isOfJob) {
            isWithin = false;
            continue;
        }
        std::array<char, 1024> text {};
        ippAttributeString(row, text.data(), text.size());
        jobs.last()[QString::fromUtf8(ippGetName(row))] = QString::fromUtf8(text.data());
    }
    std::ranges::sort(jobs, {}, [](const auto& job) { return job[QStringLiteral("job-id")].toInt(); });
    return jobs;
}

QByteArray PrintServer::Printed(const char* queue) const
{
    const auto isDone = [&] {
        const auto jobs = Jobs();
        return !jobs.isEmpty() && jobs.last()[QStringLiteral("job-state")] == QStringLiteral("completed");
    };
    return QTest::qWaitFor(isDone, Patience)
        ? FileBytes(Path(QStringLiteral("printed/") + QLatin1String(queue)))
        : QByteArray();
}

void PrintServer::Freeze()
{
    kill(pid_t(server_.processId()), SIGSTOP);
}

void PrintServer::Kill()
{
    server_.kill();
    server_.waitForFinished();
}

#include "desktop/Tool.h"

#include <QProcess>
#include <QStandardPaths>
#include <QTimer>

#include <chrono>
#include <utility>

namespace {

using namespace std::chrono_literals;
constexpr auto LongestRun = 10s;

/// Ends what it runs with itself.
class Tool : public QProcess {
public:
    using QProcess::QProcess;
    ~Tool() override
    {
        disconnect();
        if (state() == NotRunning)
            return;
        kill();
        waitForFinished();
    }
};

QString FaultOf(Tool& tool)
{
    const QString name = tool.program();
    if (tool.error() == QProcess::FailedToStart)
        return QStringLiteral("The program \"%1\" is not installed.").arg(name);
    if (tool.exitStatus() != QProcess::NormalExit)
        return QStringLiteral("The program \"%1\" did not answer.").arg(name);
    if (tool.exitCode() == 0)
        return {};
    const QString said = QString::fromLocal8Bit(tool.readAllStandardError()).trimmed().section(u'\n', 0, 0);
    return QStringLiteral("The program \"%1\" failed. %2").arg(name, said).trimmed();
}

} // namespace

bool HasTool(const QString& program)
{
    return !QStandardPaths::findExecutable(program).isEmpty();
}

void RunTool(QObject& owner, const QString& program, const QStringList& arguments,
    std::function<void(const ToolAnswer& answer)> then)
{
    auto* const tool = new Tool(&owner);
    const auto end = [tool, then = std::move(then)] {
        const ToolAnswer answer { QString::fromUtf8(tool->readAllStandardOutput()).trimmed(),
            FaultOf(*tool) };
        tool->deleteLater();
        then(answer);
    };
    QObject::connect(tool, &QProcess::finished, tool, end);
    QObject::connect(
        tool, &QProcess::errorOccurred, tool,
        [end](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart)
                end();
        },
        Qt::QueuedConnection);
    QTimer::singleShot(LongestRun, tool, [tool] { tool->kill(); });
    tool->setStandardInputFile(QProcess::nullDevice());
    tool->start(program, arguments);
}

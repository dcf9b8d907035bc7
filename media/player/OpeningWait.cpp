#include "media/player/OpeningWait.h"

#include "app/Hourglass.h"
#include "toolkit/DialogForm.h"
#include "toolkit/Style.h"

#include <QEventLoop>
#include <QHBoxLayout>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>

#include <chrono>

namespace player {

namespace {

using namespace std::chrono_literals;

constexpr auto Poll = 20ms;
constexpr auto QuietTime = 500ms; // most addresses answer sooner

class OpeningBox : public DialogForm {
public:
    explicit OpeningBox(QWidget* owner)
        : DialogForm(owner)
    {
        setObjectName(QStringLiteral("OpeningBox"));
        SetTitle(QStringLiteral("Opening the video"));
        auto* bar = new QProgressBar(this);
        bar->setRange(0, 0);
        bar->setAccessibleName(QStringLiteral("Waiting for the server"));
        auto* cancel = new QPushButton(QStringLiteral("Cancel"), this);
        connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
        auto* body = new QWidget(this);
        auto* row = new QHBoxLayout(body);
        row->setContentsMargins(4 * Grid, 4 * Grid, 4 * Grid, 4 * Grid);
        row->setSpacing(3 * Grid);
        row->addWidget(bar, 1);
        row->addWidget(cancel);
        AddBody(body);
        KeepFitting();
    }
};

/// Nobody may click anywhere meanwhile: it would happen in the middle of what the caller is doing.
void WaitQuietly(const std::function<bool()>& hasOpened)
{
    QEventLoop loop;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &loop, [&] {
        if (hasOpened())
            loop.quit();
    });
    QTimer::singleShot(QuietTime, &loop, &QEventLoop::quit);
    poll.start(Poll);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
}

bool WaitInBox(QWidget& owner, const std::function<bool()>& hasOpened)
{
    const PointerPause pause;
    const QPointer<OpeningBox> box = new OpeningBox(owner.window());
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, box, [&] {
        if (hasOpened())
            box->accept();
    });
    poll.start(Poll);
    const bool isOpened = box->exec() == QDialog::Accepted;
    delete box;
    return isOpened;
}

} // namespace

bool AwaitWithBox(QWidget& owner, const std::function<bool()>& hasOpened)
{
    const QPointer<QWidget> alive(&owner);
    WaitQuietly(hasOpened);
    return alive && (hasOpened() || WaitInBox(owner, hasOpened)) && alive;
}

} // namespace player

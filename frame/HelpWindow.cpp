#include "frame/HelpWindow.h"

#include "desktop/Documents.h"
#include "desktop/WholeFile.h"
#include "toolkit/HeadButtons.h"
#include "toolkit/Style.h"

#include <QScreen>
#include <QTextBrowser>
#include <QUrl>

#include <algorithm>

namespace {

constexpr qint64 LongestGuide = 1 << 20; // bytes
constexpr QSize StartSize(720, 640);
constexpr int Margin = 16;

QString GuideStyle()
{
    return QStringLiteral("a { color: %1; } td, th { padding: 2px 16px 2px 0; } th { text-align: left; }")
        .arg(StyleColor(Token::Accent).name());
}

} // namespace

HelpWindow::HelpWindow(const QString& guide, Documents& documents)
    : guide_(guide)
{
    setObjectName(QStringLiteral("HelpWindow"));
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    setAttribute(Qt::WA_DeleteOnClose);
    SetTitle(QStringLiteral("Help"));
    Build();
    text_->document()->setDefaultStyleSheet(GuideStyle());
    text_->setHtml(QString::fromUtf8(WholeFile::Read(guide, LongestGuide)));
    connect(text_, &QTextBrowser::anchorClicked, this, [this, &documents](const QUrl& link) {
        if (link.isRelative())
            text_->scrollToAnchor(link.fragment());
        else
            documents.Open(link.toString());
    });
}

void HelpWindow::Build()
{
    static constexpr FormButton<HelpWindow> HeadButtons[] {
        { 2, Face::Minimize, " Minimize Window ", "Minimize window",
            [](HelpWindow& help) { help.ToggleMinimize(); } },
        { 1, ShapeFace, " Restore/Maximize Window ", "Restore or maximize window",
            [](HelpWindow& help) { help.ToggleMaximize(); } },
        { 0, Face::Close, " Close Help ", "Close help", [](HelpWindow& help) { help.close(); } },
    };
    AddHeadButtons(*this, HeadButtons);
    text_ = new QTextBrowser(this);
    text_->setObjectName(QStringLiteral("Guide"));
    text_->setAccessibleName(QStringLiteral("Guide"));
    text_->setOpenLinks(false);
    text_->document()->setDocumentMargin(Margin);
    SetBody(text_);
}

void HelpWindow::PlaceOver(const QWidget& frame)
{
    const QRect screen = frame.screen()->availableGeometry();
    resize(StartSize.boundedTo(screen.size()));
    QRect place(QPoint(), size());
    place.moveCenter(frame.geometry().center());
    place.moveLeft(std::clamp(place.left(), screen.left(), screen.right() - place.width() + 1));
    place.moveTop(std::clamp(place.top(), screen.top(), screen.bottom() - place.height() + 1));
    setGeometry(place);
}

bool HelpWindow::IsGuide(const QString& document)
{
    return document.endsWith(QLatin1String(".hlp"), Qt::CaseInsensitive);
}

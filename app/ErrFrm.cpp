#include "app/ErrFrm.h"

#include "desktop/FileName.h"
#include "toolkit/xpcheckbox.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>

namespace {

constexpr int TextColumns = 56; // in average characters of the font
constexpr int MostTextLines = 16;
constexpr qsizetype LongestWord = 40;

/// Gives words that no line could hold places to break.
QString Breakable(const QString& line)
{
    constexpr QChar breakHere(0x200B);
    QString text;
    qsizetype run = 0;
    for (const QChar c : line) {
        run = c.isSpace() ? 0 : run + 1;
        if (run > LongestWord && !c.isLowSurrogate()) {
            text += breakHere;
            run = 1;
        }
        text += c;
    }
    return text;
}

QString Shown(const QString& message)
{
    QStringList lines = message.split(u'\n');
    for (QString& line : lines)
        line = Breakable(FileName::Shown(line));
    return lines.join(u'\n');
}

} // namespace

ErrFrm::ErrFrm(QWidget* owner, const QString& title, const QString& message)
    : DialogForm(owner)
    , silence_(new xpcheckbox(this))
{
    setObjectName(QStringLiteral("ErrFrm"));
    SetTitle(FileName::Shown(title));
    AddBody(MakeText(message));
    AddBody(MakeFoot());
    KeepFitting();
}

QWidget* ErrFrm::MakeText(const QString& message)
{
    auto* label = new QLabel(Shown(message));
    label->setObjectName(QStringLiteral("LblMessage"));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setMargin(16);
    const int width = fontMetrics().averageCharWidth() * TextColumns;
    const int height = label->heightForWidth(width);
    label->setFixedSize(width, height);

    const int most = fontMetrics().lineSpacing() * MostTextLines;
    const bool isLong = height > most;
    auto* scroll = new QScrollArea(this);
    scroll->setAccessibleName(QStringLiteral("Message"));
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setVerticalScrollBarPolicy(isLong ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    scroll->setWidget(label);
    const int bar = isLong ? scroll->verticalScrollBar()->sizeHint().width() : 0;
    scroll->setFixedSize(width + bar, isLong ? most : height);
    scroll->setFocusPolicy(isLong ? Qt::StrongFocus : Qt::NoFocus);
    return scroll;
}

QWidget* ErrFrm::MakeFoot()
{
    silence_->setObjectName(QStringLiteral("CheckSilence"));
    silence_->SetCaption(QStringLiteral("Do not show this again"));
    silence_->hide();

    auto* end = new QPushButton(QStringLiteral("OK"), this);
    end->setObjectName(QStringLiteral("CmdEnd"));
    end->setDefault(true);
    end->setFocus();
    connect(end, &QPushButton::clicked, this, &QDialog::accept);

    auto* foot = new QWidget(this);
    auto* row = new QHBoxLayout(foot);
    row->setContentsMargins(16, 12, 16, 12);
    row->addWidget(silence_);
    row->addStretch();
    row->addWidget(end);
    return foot;
}

void ErrFrm::OfferSilence()
{
    silence_->show();
}

bool ErrFrm::IsSilenceAsked() const
{
    return silence_->Value() == xpcheckbox::Set;
}

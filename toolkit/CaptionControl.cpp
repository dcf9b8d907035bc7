#include "toolkit/CaptionControl.h"

#include "toolkit/ButtonPaint.h"
#include "toolkit/CheckAccess.h"
#include "toolkit/Strip.h"
#include "toolkit/Style.h"

#include <QFontMetrics>
#include <QPainter>

namespace {

constexpr int Margin = 3;
constexpr int Gap = 6;
constexpr int TextFlags = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextExpandTabs;

struct PictureColors {
    Token ground;
    Token edge;
    Token mark;
};

PictureColors ColorsOf(StripControl::State state, bool marked)
{
    switch (state) {
    case StripControl::State::Rest:
        return marked ? PictureColors { Token::Accent, Token::Accent, Token::OnAccent }
                      : PictureColors { Token::Control, Token::TextSecondary, Token::Text };
    case StripControl::State::Hover:
        return marked ? PictureColors { Token::AccentHover, Token::AccentHover, Token::OnAccent }
                      : PictureColors { Token::ControlHover, Token::Text, Token::Text };
    case StripControl::State::Pressed:
        return marked ? PictureColors { Token::AccentPressed, Token::AccentPressed, Token::OnAccent }
                      : PictureColors { Token::ControlPressed, Token::Accent, Token::Accent };
    case StripControl::State::Disabled:
        break;
    }
    return { Token::Panel, Token::TextDisabled, Token::TextDisabled };
}

} // namespace

CaptionControl::CaptionControl(QWidget* parent)
    : StripControl(parent)
{
    InstallCheckAccess();
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    connect(this, &QObject::objectNameChanged, this, [this](const QString& name) {
        if (!captionSet_)
            setText(name);
    });
}

void CaptionControl::SetCaption(const QString& caption)
{
    captionSet_ = true;
    setText(caption);
    setShortcut({}); // the text takes an ampersand for one
}

QColor CaptionControl::ForeColor() const
{
    return foreColor_.isValid() ? foreColor_ : StyleColor(Token::Text);
}

void CaptionControl::SetForeColor(const QColor& color)
{
    foreColor_ = color;
    update();
}

void CaptionControl::SetBackColor(const QColor& color)
{
    backColor_ = color;
    update();
}

void CaptionControl::ShowCheck()
{
    update();
    QAccessible::State changed;
    changed.checked = true;
    changed.checkStateMixed = true;
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
}

QSize CaptionControl::sizeHint() const
{
    const QSize caption = QFontMetrics(font()).size(0, text());
    const int textRoom = text().isEmpty() ? 0 : Gap + caption.width() + Margin;
    return { Margin + Strip::CellSize + textRoom + Margin,
        std::max(Strip::CellSize, caption.height()) + 2 * Margin };
}

void CaptionControl::PaintWith(Face ground, Face edge, Face mark)
{
    QPainter painter(this);
    if (backColor_.isValid())
        painter.fillRect(rect(), backColor_);
    const PictureColors colors = ColorsOf(ShownState(), mark != Face::None);
    const QRect picture(Margin, 0, Strip::CellSize, height());
    Strip::Paint(painter, picture, ground, StyleColor(colors.ground));
    Strip::Paint(painter, picture, edge, StyleColor(colors.edge));
    Strip::Paint(painter, picture, mark, StyleColor(colors.mark));
    painter.setPen(isEnabled() ? ForeColor() : StyleColor(Token::TextDisabled));
    painter.drawText(rect().adjusted(Margin + Strip::CellSize + Gap, 0, 0, 0), TextFlags, text());
    if (HasFocusRing())
        PaintFocusRing(painter, rect());
}

#include "toolkit/Style.h"

#include "base/Rows.h"
#include "toolkit/Artwork.h"

#include <QApplication>
#include <QFile>
#include <QHash>
#include <QPalette>
#include <QRegularExpression>
#include <QStyleFactory>

#include <array>

namespace {

constexpr auto TokenCount = static_cast<size_t>(Token::Count);

struct TokenRow {
    Token token;
    const char* name;
};
constexpr std::array TokenRows {
    TokenRow { Token::Ground, "ground" },
    TokenRow { Token::Strip, "strip" },
    TokenRow { Token::Panel, "panel" },
    TokenRow { Token::Control, "control" },
    TokenRow { Token::ControlHover, "control-hover" },
    TokenRow { Token::ControlPressed, "control-pressed" },
    TokenRow { Token::LineOutside, "line-outside" },
    TokenRow { Token::LineInside, "line-inside" },
    TokenRow { Token::LineLight, "line-light" },
    TokenRow { Token::Text, "text" },
    TokenRow { Token::TextSecondary, "text-secondary" },
    TokenRow { Token::TextDisabled, "text-disabled" },
    TokenRow { Token::Accent, "accent" },
    TokenRow { Token::AccentHover, "accent-hover" },
    TokenRow { Token::AccentPressed, "accent-pressed" },
    TokenRow { Token::AccentGround, "accent-ground" },
    TokenRow { Token::OnAccent, "on-accent" },
    TokenRow { Token::Alarm, "alarm" },
    TokenRow { Token::AlarmPressed, "alarm-pressed" },
    TokenRow { Token::OnAlarm, "on-alarm" },
};
static_assert(IsOneRowEach(TokenRows, &TokenRow::token, TokenCount));

QString ReadFace()
{
    LoadArtwork();
    QFile file(QStringLiteral(":/art/face.qss"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// Token lines are "@name: #rrggbb;", one to a line.
const QRegularExpression TokenLine(
    QStringLiteral("^@([a-z-]+):\\s*(#[0-9a-f]{6});\\s*$"), QRegularExpression::MultilineOption);

QHash<QString, QString> ReadTokens(const QString& face)
{
    QHash<QString, QString> tokens;
    for (auto lines = TokenLine.globalMatch(face); lines.hasNext();) {
        const auto line = lines.next();
        tokens.insert(line.captured(1), line.captured(2));
    }
    return tokens;
}

QString Sheet()
{
    QString sheet = ReadFace();
    const QHash<QString, QString> tokens = ReadTokens(sheet);
    sheet.remove(TokenLine);
    static const QRegularExpression use(QStringLiteral("@([a-z-]+)"));
    QString result;
    qsizetype from = 0;
    for (auto uses = use.globalMatch(sheet); uses.hasNext();) {
        const auto match = uses.next();
        result += sheet.mid(from, match.capturedStart() - from) + tokens.value(match.captured(1));
        from = match.capturedEnd();
    }
    return result + sheet.mid(from);
}

std::array<QColor, TokenCount> ReadColors()
{
    const QHash<QString, QString> tokens = ReadTokens(ReadFace());
    std::array<QColor, TokenCount> colors;
    for (size_t i = 0; i < TokenCount; ++i)
        colors[i] = QColor(tokens.value(QString::fromLatin1(TokenRows[i].name)));
    return colors;
}

struct RoleRow {
    QPalette::ColorRole role;
    Token token;
};

constexpr RoleRow Roles[] {
    { QPalette::Window, Token::Panel },
    { QPalette::WindowText, Token::Text },
    { QPalette::Base, Token::Control },
    { QPalette::AlternateBase, Token::Panel },
    { QPalette::Text, Token::Text },
    { QPalette::PlaceholderText, Token::TextSecondary },
    { QPalette::Button, Token::Control },
    { QPalette::ButtonText, Token::Text },
    { QPalette::BrightText, Token::Alarm },
    { QPalette::ToolTipBase, Token::Control },
    { QPalette::ToolTipText, Token::Text },
    { QPalette::Highlight, Token::Accent },
    { QPalette::HighlightedText, Token::OnAccent },
    { QPalette::Link, Token::Accent },
    { QPalette::LinkVisited, Token::Accent },
    { QPalette::Light, Token::LineInside },
    { QPalette::Midlight, Token::ControlHover },
    { QPalette::Mid, Token::LineInside },
    { QPalette::Dark, Token::LineOutside },
    { QPalette::Shadow, Token::LineOutside },
};

constexpr RoleRow InactiveRoles[] {
    { QPalette::Highlight, Token::LineInside },
    { QPalette::HighlightedText, Token::Text },
};

constexpr RoleRow DisabledRoles[] {
    { QPalette::WindowText, Token::TextDisabled },
    { QPalette::Text, Token::TextDisabled },
    { QPalette::ButtonText, Token::TextDisabled },
    { QPalette::Base, Token::Panel },
    { QPalette::Highlight, Token::LineInside },
    { QPalette::HighlightedText, Token::TextDisabled },
};

QPalette FacePalette()
{
    QPalette palette;
    for (const RoleRow& row : Roles)
        palette.setColor(row.role, StyleColor(row.token));
    for (const RoleRow& row : InactiveRoles)
        palette.setColor(QPalette::Inactive, row.role, StyleColor(row.token));
    for (const RoleRow& row : DisabledRoles)
        palette.setColor(QPalette::Disabled, row.role, StyleColor(row.token));
    return palette;
}

} // namespace

QColor StyleColor(Token token)
{
    static const std::array<QColor, TokenCount> colors = ReadColors();
    return colors[static_cast<size_t>(token)];
}

void ApplyStyle(QApplication& application)
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("fusion")));
    QApplication::setPalette(FacePalette());
    application.setStyleSheet(Sheet());
}

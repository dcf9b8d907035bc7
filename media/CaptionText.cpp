#include "media/CaptionText.h"

#include <QByteArray>
#include <QRegularExpression>
#include <cmath>

namespace media {

namespace {

// The canvas on which the library places rows, and the grid on it.
constexpr double CanvasWidth = 384;
constexpr double CanvasHeight = 288;
constexpr double Margin = 0.1;
constexpr double ColumnStep = 0.0250;
constexpr double RowStep = 0.0533;

int OnGrid(double place, double canvas, double step, int count)
{
    return std::clamp(int(std::lround((place / canvas - Margin) / step)), 0, count - 1);
}

/// Reads rows from left to right; the look goes on from one row to the next until a tag changes it.
class AssReader {
public:
    CaptionRow Read(const QString& text)
    {
        // A brace without a tag is a letter like others.
        static const QRegularExpression tags(QStringLiteral(R"(\{\\([^}]*)\})"));
        CaptionRow row;
        qsizetype from = 0;
        for (auto found = tags.globalMatch(text); found.hasNext();) {
            const QRegularExpressionMatch tag = found.next();
            AddRun(row, text.mid(from, tag.capturedStart() - from));
            Obey(tag.captured(1), row);
            from = tag.capturedEnd();
        }
        AddRun(row, text.mid(from));
        return row;
    }

private:
    void AddRun(CaptionRow& row, QString text)
    {
        text.replace(QLatin1String("\\h"), QLatin1String(" "));
        if (text.isEmpty())
            return;
        look_.text = text;
        row.runs.push_back(look_);
    }

    void Obey(const QString& tag, CaptionRow& row)
    {
        static const QRegularExpression place(QStringLiteral(R"(^pos\((\d+),(\d+)\)$)"));
        static const QRegularExpression colour(
            QStringLiteral(R"(^c&H([0-9A-F]{2})([0-9A-F]{2})([0-9A-F]{2})&$)"));
        if (tag == QLatin1String("i0") || tag == QLatin1String("i1"))
            look_.isItalic = tag.endsWith(QLatin1Char('1'));
        else if (tag == QLatin1String("u0") || tag == QLatin1String("u1"))
            look_.isUnderlined = tag.endsWith(QLatin1Char('1'));
        else if (const auto found = place.match(tag); found.hasMatch()) {
            row.column = OnGrid(found.captured(1).toInt(), CanvasWidth, ColumnStep, CaptionColumns);
            row.row = OnGrid(found.captured(2).toInt(), CanvasHeight, RowStep, CaptionRows);
        } else if (const auto bgr = colour.match(tag); bgr.hasMatch()) {
            const auto part = [&bgr](int group) { return bgr.captured(group).toInt(nullptr, 16); };
            look_.colour = qRgb(part(3), part(2), part(1));
        }
    }

    CaptionRun look_;
};

} // namespace

Caption CaptionFromAss(const QByteArray& ass)
{
    Caption caption;
    AssReader reader;
    const QString rowEnd = QStringLiteral("\\N{\\an7}"); // alone, a backslash and an N may be letters
    for (const QString& text : QString::fromUtf8(ass).split(rowEnd, Qt::SkipEmptyParts)) {
        CaptionRow row = reader.Read(text);
        if (!row.runs.empty())
            caption.push_back(std::move(row));
    }
    return caption;
}

} // namespace media

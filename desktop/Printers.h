#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>
#include <QStringList>

#include <stdexcept>

/// A printer or its server refused or did not answer; what() says why in the program's words.
class PrinterError : public std::runtime_error {
public:
    explicit PrinterError(const QString& reason)
        : std::runtime_error(reason.toStdString())
    {
    }
    QString Reason() const { return QString::fromStdString(what()); }
};

/// Printer pixels to the inch, on every printer: four to a pixel of the screen, which has 96.
inline constexpr int PrinterPixelsPerInch = 384;

/// Whether a printer works in colour.
enum class ColorMode { Monochrome = 1, Color = 2 };

/// A sheet of paper: its code among printers and its size in millimetres.
struct Paper {
    static constexpr int UserDefined = 256; ///< code of a paper of any other size
    int code = 0;
    QSize size;
    bool operator==(const Paper&) const = default;
};

/// What a printer can reach of a sheet, in printer pixels.
struct SheetMetrics {
    QSize physical; ///< the whole sheet
    QPoint offset; ///< from the sheet's corner to that of the printable part
    QSize printable;
};

/// A page ready to print: its picture, where it stands on the sheet, and how it is printed.
struct PrintJob {
    QString title; ///< what the printer's queue shows
    Paper paper;
    QImage page; ///< at 96 pixels to the inch
    QPoint at; ///< the page's corner on the sheet, in printer pixels
    int quality = 300; ///< dots to the inch
    ColorMode color = ColorMode::Color;
};

/// The printers that are set up.
struct PrinterList {
    QStringList names;
    QString defaultName; ///< empty when there is none
    QString whyNone; ///< a sentence for the user; empty when there are printers
    QString chosenDefault; ///< what this user chose, as SetDefault takes it; empty when it is the system's
    bool isKnown = true; ///< false when the system did not answer
};

/// The system's printers. Whatever has to be asked of them is answered within seconds, or counts as refused.
class Printers {
public:
    virtual ~Printers() = default;

    /// All printers; none, and why, when the system does not answer.
    virtual PrinterList Installed() = 0;
    /// The default printer, empty when there is none or the system does not answer.
    QString DefaultName() { return Installed().defaultName; }
    /// Makes a printer, or "printer/set" for a set of options that the user has for it, the user's default;
    /// false when there is none or the system refuses.
    virtual bool SetDefault(const QString& name) = 0;
    /// Drops the user's choice, so that the system's default is his again; false when the system refuses.
    virtual bool ForgetDefault() = 0;
    /// Of a sheet in the default printer. Throws PrinterError.
    virtual SheetMetrics Metrics(const Paper& paper) = 0;
    /// Hands a page to the default printer; when this returns, its queue has the whole of it. Throws
    /// PrinterError, and then nothing will be printed.
    virtual void Print(const PrintJob& job) = 0;
};

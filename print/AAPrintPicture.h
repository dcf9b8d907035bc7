#pragma once

#include "desktop/Printers.h"

#include <QImage>
#include <QObject>
#include <QVariantMap>

class Frame;

/// Lays one picture out on a page of the default printer's paper, shows the page and prints it. Setting a
/// property draws nothing: GetPreview and PrintPicture do. They let events happen, and the object must
/// outlive a print.
class AAPrintPicture : public QObject {
    Q_OBJECT

public:
    explicit AAPrintPicture(Frame& frame, QObject* parent = nullptr);

    /// Where the picture stands: 0 to 8, as PageLayout::PlaceOf has it.
    qint32 Align() const { return align_; }
    void SetAlign(qint32 align);
    /// One pixel of the picture is one of the screen's 96 to the inch.
    QImage Picture() const { return picPicture_; }
    void SetPicture(const QImage& picture);
    /// Kept, and of no effect.
    bool ShowBorder() const { return showBorder_; }
    void SetShowBorder(bool shows);
    /// Kept, and of no effect: it is the system's default printer that prints.
    QString DefultPrinter() const { return defultPrinter_; }
    void SetDefultPrinter(const QString& name);
    /// 0 to 6, as PageLayout::PaperOf has it.
    qint32 PaperSize() const { return paperSize_; }
    void SetPaperSize(qint32 size);
    /// Millimetres, for PaperSize 0.
    qint16 PaperWidth() const { return paperWidth_; }
    void SetPaperWidth(qint16 width);
    qint16 PaperHeight() const { return paperHeight_; }
    void SetPaperHeight(qint16 height);
    /// Whether the picture fills the page.
    bool Stretch() const { return stretch_; }
    void SetStretch(bool stretches);

    /// The properties under the names by which they are stored, and back; a name that is missing gives the
    /// property's default.
    QVariantMap SavedProperties() const;
    void ReadProperties(const QVariantMap& properties);

    /// What the printer cannot reach of its sheet, in printer pixels.
    qint32 MarginTop = 0;
    qint32 MarginLeft = 0;
    qint32 MarginRight = 0;
    qint32 MarginBottom = 0;

    /// Sets the printer's paper and reads the margins, which stay as they were when the printer fails.
    void GetPrinterMargin();
    /// The paper's size in millimetres.
    QSize GetPaperWH() const;
    /// The page as the screen shows it, or the one that was drawn in the middle of this, which is newer. Null
    /// when the paper leaves nothing of it, or the object has gone meanwhile.
    QImage GetPreview();
    /// Prints the page in the quality and colour of the settings. Throws ControlError, also when there is no
    /// picture.
    void PrintPicture();

Q_SIGNALS:
    /// The margins were read, in printer pixels.
    void PrinterMargin(int left, int top, int right, int bottom);
    /// A property was set; name is the one by which it is stored.
    void PropertyChanged(const QString& name);

private:
    template <typename Value> void Set(Value& property, const Value& value, const char* name);
    Paper CurrentPaper() const;
    /// Draws the page and lets events happen once.
    void DrawPreview();

    Frame& frame_;
    QImage picPrint; ///< the page last drawn
    qint32 align_ = 4;
    QImage picPicture_;
    bool showBorder_ = true;
    QString defultPrinter_;
    qint32 paperSize_ = 2;
    qint16 paperWidth_ = 210;
    qint16 paperHeight_ = 297;
    bool stretch_ = false;
};

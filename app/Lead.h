#pragma once

#include "app/ControlError.h"
#include "app/ShrunkPicture.h"
#include "app/TextDrawing.h"
#include "imaging/PictureView.h"

#include <QImage>
#include <QWidget>

#include <optional>

class Clipboard;
class QScrollBar;
namespace imaging {
class EncodedFile;
}

/// The imaging control: one picture, how it is shown, and its mouse events. Pictures are shared between
/// controls until one of them changes its own. Failures are ControlError and leave the picture as it was. A
/// picture larger than the control can be moved by the scroll bars, the wheel and the middle button.
class Lead : public QWidget, public TextDrawing {
    Q_OBJECT

public:
    enum PaintSize { ActualSize = 0, ZoomSize = 4 };
    enum Scale { ScaleTwips = 1, ScalePixels = 3 };
    /// Flags of Paste, Size and Underlay.
    enum { PasteTake = 0, PasteTest = 16384 };
    enum { SizePlain = 0, SizeSmooth = 1 };
    enum { UnderlayTile = 0, UnderlayStretch = 1 };

    explicit Lead(QWidget* parent = nullptr);

    /// The picture held, null when the control is empty. The copy shares its pixels.
    QImage Bitmap() const { return bitmap_; }
    /// Takes a picture of any QImage format; a null picture empties the control. Display rectangles go back
    /// to the whole picture, the zoom stays.
    void SetBitmap(const QImage& picture);
    int BitmapWidth() const { return bitmap_.width(); }
    int BitmapHeight() const { return bitmap_.height(); }
    /// Bits per pixel, 0 when the control is empty.
    int BitmapBits() const;

    /// Loads the first picture of a file; bits 0 is the file's own depth, else 1, 8, 16, 24 or 32. Returns 0.
    int Load(const QString& path, int bits, int page, int pages);
    /// Writes the picture under a name that the user confirmed; format, bits and quality are a row of
    /// imaging::FormatTable. Only single pages: multipage is False.
    void Save(const QString& path, int format, int bits, int quality, bool multipage) const;
    /// The same under an automatic name, which must be free: false when it is taken, and then nothing is
    /// written.
    bool SaveNew(const QString& path, int format, int bits, int quality) const;

    QImage GetPicture() const { return bitmap_; }
    void SetPicture(const QImage& picture) { SetBitmap(picture); }
    /// Copies the picture to the clipboard; called with true.
    void Copy(Clipboard& clipboard, bool flag) const;
    /// PasteTest changes nothing and answers above 0 when the clipboard holds a picture; PasteTake takes it.
    int Paste(Clipboard& clipboard, int flags);
    /// Resamples to a new size in pixels, SizeSmooth or SizePlain; the depth stays.
    void Size(int width, int height, int flags);

    /// Draws a text as TextDrawing has it; flags is 0. Keeps what of the picture is shown.
    void DrawText(const QString& text, int flags);
    /// The operations on the picture. All keep its depth but SetColorResolution, and keep what of it is shown
    /// as long as it keeps its size. Amounts beyond a range count as its nearest bound; a code that there is
    /// not is a ControlError. What they do to a pixel stands with the functions of imaging/. Those that take
    /// time tell their Progress; when the picture is replaced meanwhile, what they made is dropped.
    void Flip();
    void Reverse();
    /// Clockwise, in hundredths of a degree; with resize the picture grows to hold the result.
    void Rotate(int angle, bool resize, const QColor& fill);
    void Grayscale();
    void Invert();
    void StretchIntensity();
    /// -1000 to 1000, 0 neutral.
    void Brightness(int amount);
    void Contrast(int amount);
    void Saturation(int amount);
    void Sharpen(int amount);
    /// -180 to 180 degrees, 0 neutral.
    void Hue(int angle);
    /// 1 to 500, 100 neutral.
    void Gamma(int gamma);
    /// Sizes in pixels: 2 to 25, 2 to 20, 0 to 1000.
    void Median(int size);
    void Oil(int size);
    void Mosaic(int size);
    /// 2 to 64 levels.
    void Posterize(int levels);
    /// 0 to 255.
    void Solarize(int threshold);
    /// Direction 0 east, 1 west, 2 north, 3 south; depth 0 to 1000.
    void Emboss(int direction, int depth);
    /// One of the codes of imaging::SpatialCode.
    void SpatialFilter(int code);
    /// Lays a picture under this one, UnderlayTile or UnderlayStretch.
    void Underlay(const QImage& picture, int flag);
    /// Depth 1, 4, 8, 16, 24 or 32; palette and dither by the numbers of imaging::PaletteKind and
    /// imaging::Dithering; colours of an optimized palette, 0 for all.
    void SetColorResolution(int bits, int palette, int dither, int colours);

    /// Unit of the display's measures: ScaleTwips or ScalePixels, at first pixels.
    int ScaleMode() const { return scaleMode_; }
    void SetScaleMode(int mode);
    /// Whether a change repaints by itself, at first true.
    void SetAutoRepaint(bool on) { autoRepaint_ = on; }
    /// Whether scroll bars appear for a picture larger than the control, at first true.
    void SetAutoScroll(bool on);
    /// Whether the ground around the picture is painted, at first true.
    void SetBackErase(bool on);
    void ForceRepaint() { repaint(); }
    /// Keeps the picture also at the size at which it is shown smaller than it is: painted sooner, for memory
    /// that only the few windows of editing are worth.
    void KeepShrunk() { shrunk_.emplace(); }

    /// Size of the current region in pixels of the picture: the whole picture.
    int RgnWidth() const { return BitmapWidth(); }
    int RgnHeight() const { return BitmapHeight(); }
    /// Size of the rectangle that the picture is mapped to, in units of ScaleMode.
    double DstWidth() const;
    double DstHeight() const;
    /// Size of the drawing area without scroll bars, in units of ScaleMode.
    double ClientWidth() const;
    double ClientHeight() const;
    /// The part of the picture given by SetSrcRect (pixels of the picture) fills the rectangle given by
    /// SetDstRect (units of ScaleMode); the clip rectangles limit what is drawn of either. Ends zooming by
    /// PaintSizeMode.
    void SetDstRect(double left, double top, double width, double height);
    void SetDstClipRect(double left, double top, double width, double height);
    void SetSrcRect(double left, double top, double width, double height);
    void SetSrcClipRect(double left, double top, double width, double height);

    /// ActualSize, or ZoomSize to show the picture at PaintZoomFactor.
    int PaintSizeMode() const { return view_.IsZoomed() ? ZoomSize : ActualSize; }
    void SetPaintSizeMode(int mode);
    /// Percent, 10 to 10000; values outside become the nearest bound. At first 100.
    int PaintZoomFactor() const { return view_.ZoomFactor(); }
    void SetPaintZoomFactor(int percent);

Q_SIGNALS:
    /// How far an operation has come, 0 to 1000; its slots may change or delete the control.
    void Progress(int part);
    void MouseDown(Qt::MouseButton button, const QPoint& position);
    void MouseMove(const QPoint& position);
    void MouseUp(Qt::MouseButton button, const QPoint& position);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    /// Replaces the picture by what an operation makes of it with these values.
    template <typename Operation, typename... Values>
    void Change(Operation operation, const Values&... values);
    imaging::EncodedFile Encoded(int format, int bits, int quality) const;
    double Unit() const;
    QSizeF TextSize() const;
    QRectF InPixels(double left, double top, double width, double height) const;
    void Changed();
    void ArrangeBars();
    void ScrollBy(QPointF distance);

    QImage bitmap_;
    QImage onScreen_; ///< what is shown instead of the picture, null when nothing is
    std::optional<ShrunkPicture> shrunk_; ///< of a picture that is kept as it is shown
    int replacements_ = 0; ///< of the picture, so far
    imaging::PictureView view_;
    int scaleMode_ = ScalePixels;
    bool autoRepaint_ = true;
    bool autoScroll_ = true;
    bool backErase_ = true;
    QScrollBar* horizontal_;
    QScrollBar* vertical_;
    QPointF panFrom_;
};

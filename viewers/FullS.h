#pragma once

#include "imaging/Animation.h"

#include <QDialog>
#include <QImage>
#include <QTimer>

#include <cstddef>

class Frame;
class Lead;
class QLabel;

/// One picture on the whole screen that the frame stands on, modal. At 100 percent a pixel of the picture is
/// a pixel of the screen; a larger picture is shown whole. A picture that moves is played, over and over,
/// from CurrentFile; where only its beginning is, ViewFactor tells so. A click or one of a few keys ends the
/// view.
class FullS : public QDialog {
    Q_OBJECT

public:
    /// An empty picture leaves the screen empty.
    FullS(Frame& frame, const QImage& picture);

    bool IsPlaying() const { return pageTimer_.isActive(); }

protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void Build();
    void EndClick();
    void ShowPicture();
    void Arrange();
    QString Beginning() const;
    void LoadPages();
    void ShowNextPage();

    Frame& frame_;
    QImage picture_;
    imaging::Pages pages_; ///< of a picture that moves
    size_t page_ = 0;
    QTimer pageTimer_;
    Lead* Leadbitmap1 = nullptr;
    QLabel* ViewFactor = nullptr;
    bool isPressed_ = false; ///< a click began here, not on what opened the view
};

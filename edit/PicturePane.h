#pragma once

#include <QWidget>

class Lead;

/// Room for a picture that is shown whole and in its own proportions.
class PicturePane : public QWidget {
    Q_OBJECT

public:
    /// What becomes of a picture that is not larger than the room.
    enum class Small {
        OwnSize, ///< it stands in the upper left corner at its own size
        Filling
    };

    /// objectName and accessibleName are those of the control that holds the picture.
    PicturePane(Small small, const QString& objectName, const QString& accessibleName, QWidget* parent);

    Lead& Picture() { return *lead_; }
    /// Sets the picture's rectangles; to be called after every change of the picture.
    void Arrange();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    const Small small_;
    Lead* lead_;
};

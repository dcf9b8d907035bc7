#pragma once

#include "toolkit/ChildForm.h"

class Documents;
class QTextBrowser;

/// The user's guide in a window of its own, beside the frame. Addresses of the web in it go to the desktop,
/// and nothing else does.
class HelpWindow : public ChildForm {
    Q_OBJECT

public:
    /// guide is the full path of a guide: a text with HTML marks in UTF-8.
    HelpWindow(const QString& guide, Documents& documents);

    /// Sizes it and puts it over the middle of the frame, wholly on the screen. It comes back there also from
    /// another shape, when the screen has become smaller meanwhile.
    void PlaceOver(const QWidget& frame);
    /// The path it was made with.
    const QString& Document() const { return guide_; }
    /// Whether the document is a guide of ours: its name ends in ".hlp".
    static bool IsGuide(const QString& document);

private:
    void Build();
    void ComeBack();

    QString guide_;
    QTextBrowser* text_ = nullptr;
};

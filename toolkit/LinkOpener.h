#pragma once

class QString;
class QWidget;

/// Where a control's links go.
class LinkOpener {
public:
    virtual ~LinkOpener() = default;
    /// Asks the system to open an address, such as one of a mail, on behalf of the window owner.
    virtual void OpenDocument(const QString& address, QWidget* owner) = 0;
    /// Shows a page of the web.
    virtual void NavigateTo(const QString& address) = 0;
};

/// Hands every link to the desktop, which finds the program for it by itself.
class DesktopLinks : public LinkOpener {
public:
    void OpenDocument(const QString& address, QWidget* owner) override;
    void NavigateTo(const QString& address) override;
};

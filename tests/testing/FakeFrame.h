#pragma once

#include "app/CaptureWindow.h"
#include "app/Frame.h"
#include "app/Lead.h"
#include "tests/testing/FakePlayer.h"
#include "tests/testing/FrameNeighbours.h"

#include <QMap>
#include <QSet>

/// A frame of the test's own over faked neighbours, with a log of what was asked.
class FakeFrame : public Frame, public FrameNeighbours {
public:
    QWidget window;
    FakePlayer player;
    Lead hold;
    QImage picSource;
    QPointer<QWidget> activeForm;
    QPointer<Lead> activeCapture;
    CaptureWindow* activeWindow = nullptr;
    QMap<StatusLabel, QString> status;
    QMap<StatusLabel, QStringList> told; ///< all that a label has said
    QSet<StatusLabel> alerts; ///< labels whose text stands in the alert's colour
    QMap<StatusLabel, bool> statusShown;
    QMap<Command, bool> enabled;
    /// The names of the calls that open or show something, in their order.
    QStringList log;
    std::function<void()> whenViewerOpens;
    std::function<void()> whenPumped;
    QImage fullScreen; ///< the picture last shown on the whole screen
    std::function<void()> whileFullScreen;
    std::function<void()> whenPaintsPumped;
    int checkedInMenus = 0;
    std::function<void(int)> chosenInMenus;

    FakeFrame() { state.LoadApplicationState(window); }

    /// Stores an option as the options window does.
    bool Store(const char* key, const char* value)
    {
        return state.Settings.SaveSetting(
            QStringLiteral("Options"), QLatin1String(key), QLatin1String(value));
    }

    ApplicationState& State() override { return state; }
    Clipboard& SystemClipboard() override { return clipboard; }
    Printers& SystemPrinters() override { return printers; }
    FileDialogs& Dialogs() override { return dialogs; }
    ErrorBox& Errors() override { return errors; }
    Wallpaper& DesktopWallpaper() override { return wallpaper; }
    QWidget* FrameWindow() override { return &window; }
    QWidget* ActiveForm() override { return activeForm; }
    Lead* ActiveCapture() override { return activeCapture; }
    CaptureWindow* ActiveCaptureWindow() override { return activeWindow; }
    void AddChild(QWidget* form) override
    {
        log << QStringLiteral("AddChild");
        activeForm = form;
        form->setParent(&window);
        form->show();
    }
    void SendToBack(QWidget*) override { log << QStringLiteral("SendToBack"); }
    void SetStatus(StatusLabel label, const QString& text) override
    {
        Note(label, text);
        alerts.remove(label);
    }
    void SetStatusAlert(StatusLabel label, const QString& text) override
    {
        Note(label, text);
        alerts.insert(label);
    }
    void ShowStatus(StatusLabel label, bool visible) override { statusShown[label] = visible; }
    void RepaintStatus(StatusLabel label) override
    {
        log << QStringLiteral("Repaint ") + status.value(label);
    }
    void EnableCommand(Command command, bool on) override { enabled[command] = on; }
    bool IsCommandEnabled(Command command) const override { return enabled.value(command); }
    void SetEnabled(bool on) override
    {
        for (const Command command :
            { Command::Stretch, Command::FitToWindow, Command::DefaultSize, Command::Capture })
            enabled[command] = on;
    }
    ltmmPlay& CurrentPlayer() override { return player; }
    void AddKid(quintptr) override { log << QStringLiteral("AddKid"); }
    void RemoveKid(quintptr) override { log << QStringLiteral("RemoveKid"); }
    void OpenViewer() override
    {
        log << QStringLiteral("OpenViewer");
        if (whenViewerOpens)
            whenViewerOpens();
    }
    void AddThumbnail() override { log << QStringLiteral("AddThumbnail"); }
    void ShowThumbnails() override { log << QStringLiteral("ShowThumbnails"); }
    Lead& ThumbHold() override { return hold; }
    void ShowFront(bool visible) override
    {
        log << (visible ? QStringLiteral("ShowFront") : QStringLiteral("HideFront"));
    }
    void OpenTools() override { log << QStringLiteral("OpenTools"); }
    void OpenVisual() override { log << QStringLiteral("OpenVisual"); }
    QImage PicSource() override { return picSource; }
    void ShowFullScreen(const QImage& picture) override
    {
        log << QStringLiteral("ShowFullScreen");
        fullScreen = picture;
        if (whileFullScreen)
            whileFullScreen();
    }
    void OpenHelp() override { log << QStringLiteral("OpenHelp"); }
    void OpenMenus(PopupOwner kind, const QStringList& items, int checkedItems, const QWidget&,
        std::function<void(int)> chosen) override
    {
        state.PopupKind = qint16(kind);
        log << items;
        checkedInMenus = checkedItems;
        chosenInMenus = std::move(chosen);
    }
    void PumpEvents() override
    {
        log << QStringLiteral("PumpEvents");
        if (whenPumped)
            whenPumped();
    }
    void PumpPaintEvents() override
    {
        if (whenPaintsPumped)
            whenPaintsPumped();
    }

private:
    void Note(StatusLabel label, const QString& text)
    {
        status[label] = text;
        told[label] << text;
    }
};

#pragma once

#include "app/Talk.h"

/// The desktop's file dialogs, or the toolkit's own where the desktop has none.
class SystemDialogs : public FileDialogs {
public:
    QString AskSaveName(
        QWidget* owner, const QString& title, const QString& filter, const QString& folder) override;
    QString AskOpenName(QWidget* owner, const QString& title, const QString& filter, const QString& folder,
        const QString& extension) override;
    bool ConfirmReplace(QWidget* owner, const QString& path) override;
    QString AskOpenNames(
        QWidget* owner, const QString& title, const QString& filter, const QString& folder) override;
    QString AskFolder(QWidget* owner, const QString& heading, const QString& folder) override;
};

/// AskColor with the program's own dialog.
QColor AskSystemColor(QWidget* owner, const QString& title, const QColor& start);

#pragma once

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QTimer>

#include <functional>
#include <gtest/gtest.h>
#include <type_traits>

/// Does something to the next modal dialog of this class once it runs.
template <typename Dialog = QFileDialog> void WhenOpen(std::type_identity_t<std::function<void(Dialog&)>> act)
{
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, act = std::move(act)] {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible())
            return;
        timer->deleteLater();
        timer->stop();
        act(*dialog);
    });
    timer->start(0);
}

/// Types names as a user would and accepts.
inline void Type(QFileDialog& dialog, const QString& names)
{
    auto* edit = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    ASSERT_NE(edit, nullptr);
    edit->setText(names);
    QMetaObject::invokeMethod(&dialog, "accept");
}

inline void Cancel(QFileDialog& dialog)
{
    dialog.reject();
}

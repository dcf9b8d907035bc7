#pragma once

#include <QString>

#include <stdexcept>

/// A control (player, picture, printer) could not do what it was asked; what() says why in the program's
/// words.
class ControlError : public std::runtime_error {
public:
    explicit ControlError(const QString& reason)
        : std::runtime_error(reason.toStdString())
    {
    }
    QString Reason() const { return QString::fromStdString(what()); }
};

/// Runs one step whose failure is to be passed over.
template <typename Step> void IgnoreErrors(Step&& step)
{
    try {
        step();
    } catch (const ControlError&) {
    }
}

#pragma once

#include <QWidget>

#include <memory>

/// Every control of the toolkit in every state.
std::unique_ptr<QWidget> ControlsPage();

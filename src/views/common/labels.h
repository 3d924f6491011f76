// How a field is called.
#pragma once

#include <QString>
#include <QWidget>

/// The text of the label that belongs to @p field, without its mnemonic; without one the accessible name.
[[nodiscard]] QString labelOf(const QWidget& view, const QWidget& field);

// Where on the keyboard a key was pressed, whatever letter stands on it. Keyboards that are laid out
// differently share the places; they are named by what stands on the one for US English.
#pragma once

#include <QKeyEvent>
#include <optional>

namespace trillomat {

/// The key's scan code of set 1, which Linux uses, too; nothing where the system does not tell it.
std::optional<quint32> PlaceOf(const QKeyEvent& press);

/// The letter, digit, "-" or "." at that place, 0 for any other.
int KeyAtPlace(quint32 scanCode);

}  // namespace trillomat

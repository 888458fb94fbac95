// What a monkey finds to type, to paste and to drop: texts, melodies in the program's own form, whole and
// damaged, and the places of files.
#pragma once

#include <QMimeData>
#include <QString>
#include <memory>

#include "support/dice.h"
#include "support/file_mischief.h"
#include "support/temp_folder.h"

namespace trillomat {

QString AnyText(Dice& dice);

/// As another program, or this one, puts it on the clipboard or drags it. The files are those of `folder`, or
/// are not there.
std::unique_ptr<QMimeData> AnyData(Dice& dice, FileMischief& files, const TempFolder& folder);

/// Melody files of each format, MIDI files, and none at all.
std::vector<std::string> FileContents();

}  // namespace trillomat

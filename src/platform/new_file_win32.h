// New files that take the place of others, over Windows.
//
// A new file is called ".saving-PROCESS-N.trillomat" in the same folder. Until the instant before it is
// renamed it is marked to be deleted when it is closed: so whatever ends the program, the system deletes it.
// Nobody else can open it meanwhile.
#pragma once

#include <filesystem>
#include <memory>

#include "files/file_store.h"
#include "platform/win32.h"

namespace trillomat {

/// As FileStore::Make.
std::unique_ptr<NewFile> MakeNewFile(const std::filesystem::path& target, bool userAlone);

/// The same for a copy: with the access list of what it replaces, else of its folder, and the time of change
/// and the attributes of `from`. Without `replace` it takes no place that is taken.
std::unique_ptr<NewFile> MakeCopy(const std::filesystem::path& from, const std::filesystem::path& target,
                                  bool replace);

/// Gives the open file `to` the access list of `from` (inherited entries stay inherited), and the attributes
/// that decide whether it is shown.
void KeepRights(const std::filesystem::path& from, HANDLE to);

/// Writes all of `bytes`. False when that fails.
bool WriteAll(HANDLE file, std::string_view bytes);

}  // namespace trillomat

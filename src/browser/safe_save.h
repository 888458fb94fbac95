// Replacing a melody file so that at every instant, a power cut included, its old or its new content is on
// the medium under its own name or one that PutBackLeftovers finds. For tune.imy:
//
//   .saving-0.trillomat        the new content, while it is written and flushed
//   .tune.imy.kept.trillomat   the old content, from then until the new one has its place
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "browser/file_store.h"
#include "core/workspace.h"

namespace trillomat {

/// A file that a command works on.
struct TargetFile {
  std::filesystem::path path;
  std::string shown;  ///< its path as the log names it
};

/// How a save came out. The old file is as it was for all but Saved.
enum class SaveOutcome { Saved, NotFound, NotRemoved, NotWritten };

/// Writes the composed melody in the current mode in the place of the file. `onRemoved` is called once the
/// old file is known to be replaceable, before the writer runs. NotFound, NotRemoved: what bDeleteFile
/// fails with, logged as there.
SaveOutcome SaveOver(const TargetFile& file, FileStore& store, Workspace& ws,
                     const std::function<void()>& onRemoved);

/// The same where no file of that name exists: Saved or NotWritten.
SaveOutcome SaveNew(const TargetFile& file, FileStore& store, Workspace& ws);

/// Deletes a file; false and a log line when it does not exist or stays.
bool bDeleteFile(const TargetFile& file, FileStore& store, Log& log);

/// Puts back, and clears away, what interrupted saves left in `folder`. Logs what it puts back.
void PutBackLeftovers(const std::filesystem::path& folder, FileStore& store, Log& log);

/// Puts `text` (not empty) in the place of `file`, flushed, whole or not at all; false when that failed.
bool ReplaceText(const std::filesystem::path& file, std::string_view text, FileStore& store);

}  // namespace trillomat

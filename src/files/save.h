// Saving the composed song as a file, and deleting one, with what the log says of it.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "core/services.h"
#include "document/document.h"
#include "files/file_store.h"
#include "files/kept_files.h"

namespace trillomat {

/// A file that a command works on.
struct TargetFile {
  std::filesystem::path path;
  std::string shown;  ///< its path as the log names it
};

/// The outcome of a save. The old file is as it was for all but Saved.
struct SaveResult {
  enum class Outcome { Saved, NotFound, NotRemoved, NotWritten };

  Outcome outcome = Outcome::Saved;
  std::string why = {};    ///< why not, Windows-1252
  KeptCopy replaced = {};  ///< the old file, where other bytes replaced it
};

/// What saving works on; all of it outlives the call.
struct SaveParts {
  FileStore& store;
  Document& document;
  KeptFiles& kept;
  Services services;
};

/// Replaces the file by one that holds the song, to which the document then belongs, and keeps the old file.
/// One that cannot be kept is replaced all the same, and that is logged. `onRemoved` is called once the old
/// file is known to be replaceable, before the writer runs. When the old file is missing or cannot be
/// replaced (NotFound, NotRemoved), that is logged as DeleteFile does.
SaveResult SaveOver(const TargetFile& file, const SaveParts& parts, const std::function<void()>& onRemoved);

/// The same where no file of that name exists; only Saved or NotWritten.
SaveResult SaveNew(const TargetFile& file, const SaveParts& parts);

/// Deletes a file; false and a log line when it does not exist or stays.
bool DeleteFile(const TargetFile& file, FileStore& store, Log& log);

}  // namespace trillomat

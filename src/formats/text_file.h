// Melody files as bytes: read whole, cut into lines, appended to. Nothing is translated, so NUL and
// high bytes are ordinary characters.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace trillomat {

/// All bytes of the file. Throws RunTimeFault when it cannot be opened or read.
std::string ReadBytes(const std::filesystem::path& file);

/// The lines of `bytes` without their ends. CR, CR LF or a lone LF ends a line; a last line without
/// an end counts.
std::vector<std::string_view> SplitLines(std::string_view bytes);

/// All lines joined without a separator.
std::string JoinLines(std::string_view bytes);

/// Appends `text` to the file, made when missing. Throws RunTimeFault when opening, writing, flushing
/// or closing fails. An empty `text` is what a writer gives that was stopped because the program is
/// ending: throws QuietFailure and leaves the file alone.
void AppendText(const std::filesystem::path& file, std::string_view text);

}  // namespace trillomat

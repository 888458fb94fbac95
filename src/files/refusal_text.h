// Why a text was refused, or what of it was not understood, in words for the message bar and the command
// line. UTF-8, as all messages of files.
#pragma once

#include <string>
#include <string_view>

#include "formats/formats.h"

namespace trillomat {

/// One or two short sentences: 'tune.imy, line 12, column 1: the line has no ":" (an empty line). Each line
/// begins with a tag and ":", like "NAME:Tune".' What is not known is left out. `name` (UTF-8) is that of the
/// file, empty for a text that is in none.
std::string RefusalText(std::string_view name, const Refusal& refusal);

/// '3 of 120 elements were not understood, the first is "85_" in line 1, column 24'; empty where all were.
std::string NotUnderstoodText(const NotUnderstood& lost);

/// The words of a refusal as a sentence: "the file is empty" becomes "The file is empty.".
std::string SentenceText(std::string_view why);

/// Two texts as sentences behind each other; either may be empty, and then the other stands without a full
/// stop.
std::string JoinedSentences(std::string first, const std::string& second);

}  // namespace trillomat

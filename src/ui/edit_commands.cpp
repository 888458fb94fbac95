#include "ui/edit_commands.h"

#include <utility>

#include "composer/problems.h"
#include "core/scoped_value.h"
#include "files/refusal_text.h"
#include "ui/qt_text.h"

namespace trillomat {

EditCommands::EditCommands(const Document& document, Composer& composer, const Services& services,
                           EditCallbacks callbacks)
    : document_(document), composer_(composer), services_(services), callbacks_(std::move(callbacks)) {}

// Copying lets events run, which may change the selection. Nothing is erased then that was not copied.
void EditCommands::Cut() {
  if (!composer_.MayEdit() || !HasSelection()) return;
  const ElementList cut = composer_.Selected();
  CopyToClipboard(cut, document_, services_);
  if (composer_.Selected() == cut) composer_.EraseSelected("cutting");
}

void EditCommands::Copy() {
  if (HasSelection()) CopyToClipboard(composer_.Selected(), document_, services_);
}

void EditCommands::Paste() {
  if (!composer_.MayEdit() || pasting_) return;
  const ScopedValue pasting(pasting_, true);
  ClipboardMelody melody = ReadClipboard(document_.Mode(), services_);
  const ReadResult& read = melody.read;
  if (read) composer_.Paste(read.elements);
  std::string said =
      read ? NotUnderstoodText(read.notUnderstood) : "Not pasted: " + RefusalText({}, *read.refusal);
  callbacks_.pasted(std::move(said), melody);
}

void EditCommands::GoToNextProblem() {
  if (!composer_.MayEdit()) return;
  const auto index = NextProblem(document_);
  if (index) composer_.SelectElements({*index, *index + 1});
  callbacks_.say(ToQString(ProblemWords(document_, index)));
}

}  // namespace trillomat

#include "composer/edit_sound.h"

#include <utility>

#include "core/scoped_value.h"

namespace trillomat {

void EditSound::Play(int32_t index, Cause cause) {
  if (!document_.HasElement(index)) return;
  next_ = Request{document_.At(index), index};
  cause_ = cause;
  if (runs_) return player_.CutShort();
  const ScopedValue runs(runs_, true);
  while (next_ && LetCommandsRun()) PlayNext();
}

// Before a tone that lets no events run: what was typed during the last one waits in the event queue, and
// only the newest of it is to be heard. False when the program is ending.
bool EditSound::LetCommandsRun() { return !player_.TonesBlock() || pump_.WaitForEvents(1); }

void EditSound::PlayNext() {
  const auto request = std::exchange(next_, std::nullopt);
  if (!request || !document_.HasElement(request->index)) return;
  if (document_.At(request->index) == request->element) player_.PlayElement(request->element, request->index);
}

}  // namespace trillomat

// The offer to read a text in a better way, once it was refused or not wholly understood, and what tidying
// changed in the last one that was.
#pragma once

#include <QPointer>
#include <QStringList>
#include <optional>
#include <string>

#include "exchange/second_reading.h"
#include "files/files_host.h"
#include "ui/changes_window.h"
#include "ui/import_window.h"

namespace trillomat {

class SecondReadings {
 public:
  /// Its windows stand over that of `parent`; readings start from `record`.
  SecondReadings(QWidget& parent, const ReadRecord& record, const Services& services)
      : parent_(parent), record_(record), services_(services) {}

  /// The message `said` (UTF-8) about `text` (Windows-1252), which came to `read` when it was read in `way`,
  /// with the offer of a better way, if there is one.
  FileMessage WithOffer(std::string said, std::string_view text, const ReadingWay& way,
                        const ReadResult& read);

  /// The same for an import that was refused, and for one that was read. Where it was tidied and there is
  /// no better way, the changes are offered.
  FileMessage OfferAfterRefusal(std::string said, const ImportOrigin& origin, const ReadResult& read);
  FileMessage OfferAfterImport(const ImportOrigin& origin, const ReadResult& read);

  /// Reads the text of the last offer in the better way, asking which of several tunes is meant. Nothing when
  /// that was cancelled, when the text is refused, and when there was no offer yet. The offer stays for
  /// another call.
  std::optional<BetterReading> Read();

  /// Shows what tidying changed in the text that was read, or refused, last.
  void ShowChanges();

 private:
  FileMessage DoneMessage(const ReadingWay& way, bool otherFormat, NotUnderstood lost,
                          const std::vector<TidyChange>& changes);
  FileMessage::Offer KeepChanges(const std::vector<TidyChange>& changes);

  struct OfferedReading {
    std::string text;
    ReadingWay way;
    bool otherFormat;  ///< than the text was read as before
  };

  QWidget& parent_;
  const ReadRecord& record_;
  Services services_;
  std::optional<OfferedReading> offered_;
  QStringList changes_;
  QPointer<ChangesWindow> window_;
};

}  // namespace trillomat

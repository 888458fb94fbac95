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

  /// What is to be said of a text that came to `read` when it was read in `way`: `said`, and the offer of a
  /// better way, if there is one.
  FileMessage Offered(std::string said, std::string_view text, const ReadingWay& way, const ReadResult& read);

  // The same of an import, which may have been tidied.
  FileMessage Refused(std::string said, const ImportOrigin& origin, const ReadResult& read);
  FileMessage Imported(const ImportOrigin& origin, const ReadResult& read);

  /// Reads the text that was offered last, which stays until another is; asks for one of several tunes.
  std::optional<BetterReading> Read();

  /// Of what was read, or refused, last.
  void ShowChanges();

 private:
  FileMessage Done(const ReadingWay& way, bool otherFormat, NotUnderstood lost,
                   const std::vector<TidyChange>& changes);
  FileMessage::Offer KeepChanges(const std::vector<TidyChange>& changes);

  struct Offer {
    std::string text;
    ReadingWay way;
    bool otherFormat;
  };

  QWidget& parent_;
  const ReadRecord& record_;
  Services services_;
  std::optional<Offer> offer_;
  QStringList changes_;
  QPointer<ChangesWindow> window_;
};

}  // namespace trillomat

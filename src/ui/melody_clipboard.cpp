#include "ui/melody_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <memory>
#include <utility>

#include "core/limits.h"
#include "exchange/pasted_text.h"
#include "files/read_file.h"
#include "files/recovery_text.h"
#include "ui/qt_text.h"

namespace trillomat {
namespace {

ClipboardMelody Refused(std::string_view why) {
  return {{.elements = {}, .record = {}, .refusal = Refusal{std::string(why)}}};
}

}  // namespace

void CopyToClipboard(const ElementList& elements, const Document& document, const Services& services) {
  const Song phrase{elements, document.Info()};
  const FormatMode mode = document.Mode();
  auto data = std::make_unique<QMimeData>();
  data->setData(QLatin1String(kElementsType), QByteArray::fromStdString(WriteRecovery(phrase, mode, {}, 0)));
  if (const auto text = Write(phrase, mode, services)) data->setText(ToQString(*text));
  QGuiApplication::clipboard()->setMimeData(data.release());
}

ClipboardMelody ReadClipboard(FormatMode mode, const Services& services) {
  const QMimeData* data = QGuiApplication::clipboard()->mimeData();
  if (data == nullptr) return Refused("the clipboard is empty");
  const QByteArray own = data->data(QLatin1String(kElementsType));
  if (auto recovered = ReadRecovery(std::string_view(own.data(), static_cast<size_t>(own.size())))) {
    return {{.elements = std::move(recovered->song.elements), .record = {}, .refusal = {}}};
  }
  const QString text = data->text();
  if (text.trimmed().isEmpty()) return Refused("the clipboard holds no text");
  if (static_cast<size_t>(text.size()) > kLargestInput) return Refused(TooLargeText());
  std::string bytes = FromQString(text);
  ReadResult read = ReadPasted(bytes, mode, services);
  return {std::move(read), std::move(bytes)};
}

}  // namespace trillomat

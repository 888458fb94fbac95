#include "exchange/import_dialog.h"

#include "core/ascii.h"
#include "exchange/export_targets.h"
#include "exchange/import_text.h"
#include "exchange/range_adaptation.h"

namespace trillomat {

const std::array<ImportOption, 5> kImportOptions{{{"Nokia RTTL", Convert_RTTTL},
                                                  {"E-Melody", bConvert_EMelody},
                                                  {"Melody", bConvert_Melody},
                                                  {"Option2", nullptr},
                                                  {"Option3", nullptr}}};

void ImportDialog::Load() {
  ws_.ImportMelody.clear();
  ws_.refusal.clear();
  canImport_ = false;
}

void ImportDialog::Update(Options optImport, std::string_view source) {
  // The other options keep what the one before them left.
  switch (Selected(optImport)) {
    case 0: canImport_ = Contains(source, ":") && Contains(source, ","); break;
    case 1: canImport_ = source.size() >= 2; break;
    default: break;
  }
}

bool ImportDialog::Import(Options optImport, std::string_view source, bool chkAdapt) {
  const LogOperation operation(ws_.log);
  const ImportOption& option = kImportOptions.at(Selected(optImport));
  if (option.convert == nullptr) return true;
  if (!option.convert(source, ws_)) {
    ws_.ImportMelody.clear();
    ws_.log.WriteLog("Failed to make the import", 1);
    return false;
  }
  if (chkAdapt) AdaptForT68i();
  return true;
}

size_t ImportDialog::Selected(Options optImport) {
  size_t selected = 0;
  for (size_t i = 0; i < optImport.size(); ++i) {
    if (optImport[i]) selected = i;
  }
  return selected;
}

void ImportDialog::AdaptForT68i() {
  const ExportTarget& phone = TargetOf(Phone::T68i);
  bool ok = false;
  AdaptImportRange(phone.range.low, phone.range.high, ws_, ImportOctaveShift, ok);
  if (ok) return;
  ws_.log.WriteLog("Failed to make the adaption", 1);
  ws_.refusal = RangeRefusal(ws_.ImportMelody, phone.range, phone.name);
}

}  // namespace trillomat

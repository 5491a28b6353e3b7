#include "framework/library_services.h"

#include "platform/platform.h"

namespace quenzel7 {

Long GetElementSize(Long elementId) { return Platform::Current().changeTracker->ElementSize(elementId); }

Long GetDefaultFontNumber() { return Platform::Current().fontService->GetDefaultFontNumber(); }

Long ShowLibraryMessage(Long number, automation::Variant& argument) {
  return Platform::Current().messageService->ShowMessage(number, argument);
}

Long ShowLibraryMessage(Long number) {
  automation::Variant nothing;
  return ShowLibraryMessage(number, nothing);
}

void ShowLibraryBox(const std::string& text) {
  // The caption that the run-time gives a box that has none.
  Platform::Current().messageBoxes->Show(text, corvane1::kOkButton, "Quenzel7");
}

void ReportLibraryError(const std::string& source, Long number, const std::string& description,
                        const std::string& text1, const std::string& text2, Long value) {
  Platform::Current().errorLog->Report({source, number, description, "Quenzel7.dll", text1, text2, value});
}

Long CalcDataCRC(std::span<const Byte> data) { return Platform::Current().crcService->Crc(data); }

}  // namespace quenzel7

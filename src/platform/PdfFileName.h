#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace brisklog {

/// The suggestion as a name for a PDF file that lies where it is put and can be seen there: without "/" and
/// control characters ("-" stands for each), not hidden, never empty, at most 255 bytes long, ending in
/// ".pdf".
[[nodiscard]] std::string pdfFileName(std::string_view suggestion);

/// The file the user chose, with ".pdf" behind its name where that is missing. Nobody asked the user about a
/// file that bears the longer name already, so a free one is taken then: "Name 2.pdf".
[[nodiscard]] std::filesystem::path
withPdfEnding(const std::filesystem::path& chosen,
              const std::function<bool(const std::filesystem::path&)>& isTaken);

} // namespace brisklog

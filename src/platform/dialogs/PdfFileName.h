#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace brisklog {

/// Turns the suggestion into a name for a PDF file that stays in the chosen folder and is visible there: "/"
/// and control characters become "-"; it is not hidden, never empty, at most 255 bytes long, and ends in
/// ".pdf".
[[nodiscard]] std::string pdfFileName(std::string_view suggestion);

/// The file the user chose, with ".pdf" appended if that is missing. The user has not been asked about
/// overwriting a file with the longer name, so if there is one, a free name is used: "Name 2.pdf".
[[nodiscard]] std::filesystem::path
withPdfEnding(const std::filesystem::path& chosen,
              const std::function<bool(const std::filesystem::path&)>& isTaken);

} // namespace brisklog

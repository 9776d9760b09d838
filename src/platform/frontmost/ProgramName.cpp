#include "platform/frontmost/ProgramName.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string_view>
#include <vector>

namespace brisklog {
namespace {

using namespace std::string_view_literals;

constexpr std::array interpreters{"python"sv, "perl"sv, "ruby"sv, "bash"sv, "sh"sv,
                                  "dash"sv,   "gjs"sv,  "node"sv, "java"sv};

std::vector<std::string> argumentsOf(std::uint32_t process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/cmdline", std::ios::binary);
    std::vector<std::string> arguments;
    for (std::string argument; std::getline(file, argument, '\0');)
        arguments.push_back(argument);
    return arguments;
}

std::string fileName(const std::string& path) { return std::filesystem::path(path).filename(); }

/// The name may include a version: "python3.11".
bool isInterpreter(std::string_view name) {
    const std::size_t end = name.find_first_of("0123456789.");
    return std::ranges::find(interpreters, name.substr(0, end)) != interpreters.end();
}

} // namespace

std::string programName(std::uint32_t process) {
    const auto arguments = argumentsOf(process);
    if (arguments.empty())
        return {};
    std::string program = fileName(arguments.front());
    if (!isInterpreter(program))
        return program;
    const auto script = std::ranges::find_if(arguments.begin() + 1, arguments.end(),
                                             [](const std::string& text) { return !text.starts_with('-'); });
    return script == arguments.end() ? program : fileName(*script);
}

} // namespace brisklog

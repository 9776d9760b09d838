#include "Layering.h"

#include <algorithm>
#include <regex>
#include <set>
#include <sstream>

namespace brisklog::test {
namespace {

const std::string programsBox = "app/main.cpp";

std::vector<Include> includesIn(const std::vector<SourceLine>& lines, char begin, char end) {
    std::vector<Include> includes;
    for (const SourceLine& line : lines)
        if (const std::string header = includedBetween(begin, end, line.text); !header.empty())
            includes.push_back({line, header});
    return includes;
}

/// A call in a build file that names a library and what it links.
struct LinkCall {
    std::string box;
    std::string library;
    std::vector<std::string> linked;
};

LinkCall linkCall(const std::string& folder, const std::string& command, const std::string& arguments) {
    std::istringstream words(arguments);
    LinkCall call{.box = folder, .library = {}, .linked = {}};
    words >> call.library;
    if (command == "brisklog_box")
        call.library = "brisklog-" + call.library;
    if (call.library == "brisklog")
        call.box = programsBox;
    for (std::string word; words >> word;)
        if (word.starts_with("brisklog-"))
            call.linked.push_back(word);
    return call;
}

std::vector<LinkCall> linkCallsIn(const std::string& folder, const std::string& text) {
    static const std::regex comment("#[^\n]*");
    static const std::regex call(R"((brisklog_box|target_link_libraries)\(([^)]*)\))");
    const std::string code = std::regex_replace(text, comment, "");
    std::vector<LinkCall> calls;
    for (std::sregex_iterator match(code.begin(), code.end(), call), end; match != end; ++match)
        calls.push_back(linkCall(folder, match->str(1), match->str(2)));
    return calls;
}

void addReachable(const Arrows& arrows, const std::string& box, std::set<std::string>& reached) {
    const auto found = arrows.find(box);
    if (!reached.insert(box).second || found == arrows.end())
        return;
    for (const std::string& below : found->second)
        addReachable(arrows, below, reached);
}

std::string complaint(const std::string& box, const char* fault, const std::string& other) {
    return std::string(box).append(fault).append(other);
}

bool mayShowWidgets(const std::string& box) {
    return box == "app" || box == programsBox || box.starts_with("ui/") || box.ends_with("/screens") ||
           box == "platform/dialogs" || box == "platform/panel";
}

} // namespace

std::string boxOf(std::string file) {
    const std::string root = "src/";
    if (file.starts_with(root))
        file.erase(0, root.size());
    return file == programsBox ? file : std::filesystem::path(file).parent_path().string();
}

std::vector<Include> ownIncludes(const std::vector<SourceLine>& lines) { return includesIn(lines, '"', '"'); }

std::vector<Include> foreignIncludes(const std::vector<SourceLine>& lines) {
    return includesIn(lines, '<', '>');
}

Arrows linksIn(const std::map<std::string, std::string>& buildFiles) {
    std::vector<LinkCall> calls;
    for (const auto& [folder, text] : buildFiles)
        std::ranges::move(linkCallsIn(folder, text), std::back_inserter(calls));
    std::map<std::string, std::string> boxOfLibrary;
    for (const LinkCall& call : calls)
        boxOfLibrary.emplace(call.library, call.box);
    Arrows links;
    for (const LinkCall& call : calls)
        for (std::vector<std::string>& linked = links[call.box]; const std::string& library : call.linked)
            linked.push_back(boxOfLibrary.contains(library) ? boxOfLibrary.at(library) : library);
    return links;
}

bool standsOn(const Arrows& arrows, const std::string& box, const std::string& below) {
    std::set<std::string> reached;
    addReachable(arrows, box, reached);
    return reached.contains(below);
}

Complaints circlesIn(const Arrows& arrows) {
    Complaints complaints;
    for (const auto& [box, standing] : arrows)
        for (const std::string& below : standing)
            if (standsOn(arrows, below, box))
                complaints.push_back(complaint(box, " is both above and below ", below));
    return complaints;
}

Complaints forbiddenIncludes(const Arrows& arrows, const std::vector<Include>& includes) {
    Complaints complaints;
    for (const Include& include : includes)
        if (!standsOn(arrows, boxOf(include.line.file), boxOf(include.header)))
            complaints.push_back(include.line.place());
    return complaints;
}

Complaints forbiddenLinks(const Arrows& arrows, const Arrows& links) {
    Complaints complaints;
    for (const auto& [box, linked] : links)
        for (const std::string& below : linked)
            if (!standsOn(arrows, box, below))
                complaints.push_back(complaint(box, " links ", below));
    return complaints;
}

Complaints unusedArrows(const Arrows& arrows, const std::vector<Include>& includes) {
    std::set<std::pair<std::string, std::string>> used;
    for (const Include& include : includes)
        used.emplace(boxOf(include.line.file), boxOf(include.header));
    Complaints complaints;
    for (const auto& [box, standing] : arrows)
        for (const std::string& below : standing)
            if (!used.contains({box, below}))
                complaints.push_back(complaint(box, " includes nothing of ", below));
    return complaints;
}

Complaints widgetsWhereNothingIsShown(const std::vector<Include>& includes,
                                      const std::function<bool(const std::string&)>& isWidgets) {
    Complaints complaints;
    for (const Include& include : includes)
        if (isWidgets(include.header) && !mayShowWidgets(boxOf(include.line.file)))
            complaints.push_back(include.line.place());
    return complaints;
}

Complaints processWideObjectsMadeIn(const std::vector<SourceLine>& lines) {
    // The type followed by a variable's name, by constructor arguments, or by the end of make_unique<…>.
    static const std::regex made(R"((^|[^:~\w])(AppSettings|UserProfile)( \w|\(|\{|>))");
    static const std::regex declared(R"(^\s*(//|class |explicit )|type_identity<)");
    Complaints complaints;
    for (const SourceLine& line : lines)
        if (!line.file.starts_with("src/app/") && std::regex_search(line.text, made) &&
            !std::regex_search(line.text, declared))
            complaints.push_back(line.place());
    return complaints;
}

} // namespace brisklog::test

// The folders of src/ stand on levels: an include leads downwards or stays in its folder, and few may know the toolkit.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

const std::map<std::string, int> LevelOfFolder{
    {"catalogue", 0}, {"text", 0},  {"platform", 0}, {"model", 1},   {"render", 2}, {"storage", 2},
    {"editor", 3},    {"stats", 3}, {"report", 3},   {"imaging", 3}, {"cli", 4},    {"ui", 4},
};
constexpr int LevelOfMain = 5;
const std::set<std::string> FoldersWithToolkit{"imaging", "ui", "main.cpp"};

struct SourceFile {
    std::string Name;   ///< from src/
    std::string Folder; ///< of src/, or the file's own name where it stands in none
    std::vector<std::string> Lines;
};

std::vector<SourceFile> SourceFiles() {
    const fs::path source = fs::path(SOURCE_FOLDER) / "src";
    std::vector<SourceFile> files;
    for (const auto& entry : fs::recursive_directory_iterator(source)) {
        const std::string ending = entry.path().extension().string();
        if (ending != ".h" && ending != ".cpp") continue;
        const fs::path name = entry.path().lexically_relative(source);
        SourceFile file{name.generic_string(), name.begin()->string(), {}};
        std::ifstream stream(entry.path());
        for (std::string line; std::getline(stream, line);)
            file.Lines.push_back(line);
        files.push_back(file);
    }
    return files;
}

struct Include {
    std::string Name;
    bool Own; ///< in double quotes
};

std::vector<Include> IncludesOf(const SourceFile& file) {
    static const std::regex pattern("^\\s*#\\s*include\\s*([<\"])([^>\"]+)[>\"].*$");
    std::vector<Include> includes;
    for (const std::string& line : file.Lines) {
        std::smatch match;
        if (std::regex_match(line, match, pattern)) includes.push_back({match[2], match[1] == "\""});
    }
    return includes;
}

int LevelOf(const std::string& folder) {
    const auto found = LevelOfFolder.find(folder);
    return found == LevelOfFolder.end() ? LevelOfMain : found->second;
}

bool IsOfToolkit(const std::string& include) {
    static const std::regex pattern("Q[A-Z].*|Qt.*/.*|q[a-z]+\\.h");
    return std::regex_match(include, pattern);
}

TEST(Layers, EverySourceFileStandsInAFolderOfThePicture) {
    const std::vector<SourceFile> files = SourceFiles();

    ASSERT_GT(files.size(), 60U);
    for (const SourceFile& file : files)
        EXPECT_TRUE(LevelOfFolder.contains(file.Folder) || file.Name == "main.cpp") << file.Name;
}

TEST(Layers, NoIncludeLeadsUpwardOrSideways) {
    int includes = 0;
    for (const SourceFile& file : SourceFiles()) {
        for (const Include& include : IncludesOf(file)) {
            if (!include.Own || include.Name == "version.h") continue;
            ++includes;
            const std::size_t slash = include.Name.find('/');
            ASSERT_NE(slash, std::string::npos) << file.Name << " includes " << include.Name << " not from src/";
            const std::string folder = include.Name.substr(0, slash);
            EXPECT_TRUE(LevelOfFolder.contains(folder)) << file.Name << " includes " << include.Name;
            EXPECT_TRUE(folder == file.Folder || LevelOf(folder) < LevelOf(file.Folder))
                << file.Name << " includes " << include.Name;
        }
    }
    EXPECT_GT(includes, 100);
}

TEST(Layers, NoToolkitHeaderStandsOutsideItsFolders) {
    int toolkitIncludes = 0;
    for (const SourceFile& file : SourceFiles()) {
        for (const Include& include : IncludesOf(file)) {
            if (!IsOfToolkit(include.Name)) continue;
            ++toolkitIncludes;
            EXPECT_TRUE(FoldersWithToolkit.contains(file.Folder)) << file.Name << " includes " << include.Name;
        }
    }
    EXPECT_GT(toolkitIncludes, 0);
}

TEST(Layers, EverySourceFileOpensByTellingWhatItIsFor) {
    for (const SourceFile& file : SourceFiles()) {
        std::size_t comments = 0;
        while (comments < file.Lines.size() && file.Lines[comments].starts_with("// "))
            ++comments;
        EXPECT_GE(comments, 1U) << file.Name;
        EXPECT_LE(comments, 3U) << file.Name;
    }
}

TEST(Layers, EachFoldersLibraryIsLinkedWithLowerOnesAlone) {
    std::ifstream stream(fs::path(SOURCE_FOLDER) / "src" / "CMakeLists.txt");
    static const std::regex pattern("^pistaro_layer\\((\\w+)(?: USES (.*))?\\)$");
    int libraries = 0;
    for (std::string line; std::getline(stream, line);) {
        std::smatch match;
        if (!std::regex_match(line, match, pattern)) continue;
        ++libraries;
        const std::string folder = match[1];
        ASSERT_TRUE(LevelOfFolder.contains(folder)) << folder;
        std::istringstream uses(match[2]);
        for (std::string used; uses >> used;) {
            EXPECT_TRUE(!used.starts_with("Qt") || FoldersWithToolkit.contains(folder)) << line;
            if (!LevelOfFolder.contains(used)) continue;
            EXPECT_LT(LevelOf(used), LevelOf(folder)) << folder << " uses " << used;
        }
    }
    EXPECT_GE(libraries, 9);
}

} // namespace

// The rules of the layers, as complaints about a list of layers and about source files. They know no layer by name but
// those that may use the toolkit.
#pragma once

#include <algorithm>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace pistaro::layers {

/// A line `pistaro_layer(Name USES ...)`: layers by their names, and other libraries, which have "::" in theirs.
struct Layer {
    std::string Name;
    std::vector<std::string> Uses;
};

struct SourceFile {
    std::string Name; ///< from src/
    std::string Text;

    /// The folder of src/, or the file's own name where it stands in none.
    std::string Folder() const { return Name.substr(0, Name.find('/')); }
};

struct Include {
    std::string Name;
    bool Own; ///< in double quotes
};

using Complaints = std::vector<std::string>;

inline const std::set<std::string> FoldersWithToolkit{"imaging", "ui", "main.cpp"};

inline bool IsLayer(const std::string& use) { return use.find("::") == std::string::npos; }

inline std::vector<Layer> LayersOf(const std::string& cmakeLists) {
    static const std::regex comment("#[^\n]*");
    static const std::regex call("pistaro_layer\\s*\\(([^)]*)\\)");
    const std::string text = std::regex_replace(cmakeLists, comment, "");
    std::vector<Layer> layers;
    for (std::sregex_iterator match(text.begin(), text.end(), call), end; match != end; ++match) {
        std::istringstream words((*match)[1]);
        Layer layer;
        words >> layer.Name;
        for (std::string word; words >> word;) {
            if (word != "USES") layer.Uses.push_back(word);
        }
        layers.push_back(layer);
    }
    return layers;
}

inline std::vector<Include> IncludesOf(const SourceFile& file) {
    static const std::regex pattern("^\\s*#\\s*include\\s*([<\"])([^>\"]+)[>\"].*$");
    std::istringstream text(file.Text);
    std::vector<Include> includes;
    for (std::string line; std::getline(text, line);) {
        std::smatch match;
        if (std::regex_match(line, match, pattern)) includes.push_back({match[2], match[1] == "\""});
    }
    return includes;
}

inline bool IsOfToolkit(const std::string& include) {
    static const std::regex pattern("Q[A-Z].*|Qt[A-Z].*|q[a-z]+\\.h");
    return std::regex_match(include, pattern);
}

/// A layer uses only such as stand before it, each once; the toolkit's libraries only where they belong.
inline Complaints ListComplaints(const std::vector<Layer>& layers) {
    Complaints complaints;
    std::set<std::string> before;
    for (const Layer& layer : layers) {
        std::set<std::string> listed;
        for (const std::string& use : layer.Uses) {
            if (IsLayer(use) && !before.contains(use))
                complaints.push_back(layer.Name + " uses no earlier layer: " + use);
            if (!listed.insert(use).second) complaints.push_back(layer.Name + " lists twice: " + use);
            if (use.starts_with("Qt") && !FoldersWithToolkit.contains(layer.Name)) {
                complaints.push_back(layer.Name + " links the toolkit: " + use);
            }
        }
        if (!before.insert(layer.Name).second) complaints.push_back("listed twice: " + layer.Name);
    }
    return complaints;
}

/// What one include breaks, given what the including folder may use, or "".
inline std::string IncludeComplaint(const Include& include, const std::string& folder,
                                    const std::set<std::string>& mayUse) {
    if (IsOfToolkit(include.Name)) return FoldersWithToolkit.contains(folder) ? "" : "is the toolkit's";
    if (!include.Own || include.Name == "version.h") return "";
    const std::size_t slash = include.Name.find('/');
    if (slash == std::string::npos) return "is not written from src/";
    const std::string from = include.Name.substr(0, slash);
    return from == folder || mayUse.contains(from) ? "" : "is of a layer that is not listed";
}

/// A file includes only what its layer lists, main.cpp any layer; a layer lists only what its files include.
inline Complaints IncludeComplaints(const std::vector<Layer>& layers, const std::vector<SourceFile>& files) {
    std::map<std::string, std::set<std::string>> mayUse, included;
    for (const Layer& layer : layers) {
        mayUse[layer.Name] = {layer.Uses.begin(), layer.Uses.end()};
        mayUse["main.cpp"].insert(layer.Name);
    }
    Complaints complaints;
    for (const SourceFile& file : files) {
        const std::string folder = file.Folder();
        if (!mayUse.contains(folder)) complaints.push_back(file.Name + " stands in no layer");
        for (const Include& include : IncludesOf(file)) {
            const std::string complaint = IncludeComplaint(include, folder, mayUse[folder]);
            if (!complaint.empty()) complaints.push_back(file.Name + ": " + include.Name + " " + complaint);
            if (include.Own) included[folder].insert(include.Name.substr(0, include.Name.find('/')));
        }
    }
    for (const Layer& layer : layers) {
        for (const std::string& use : layer.Uses) {
            const bool used = !IsLayer(use) || included[layer.Name].contains(use);
            if (!used) complaints.push_back(layer.Name + " lists what no file of it includes: " + use);
        }
    }
    return complaints;
}

} // namespace pistaro::layers

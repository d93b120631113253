#include "faults/tree.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace pistaro {

Tree TreeBelow(const std::filesystem::path& folder) {
    Tree tree;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        const std::string name = entry.path().lexically_relative(folder).string();
        if (entry.is_symlink()) {
            tree[name] = "link to " + std::filesystem::read_symlink(entry.path()).string();
        } else if (entry.is_directory()) {
            tree[name + "/"] = "folder";
        } else {
            tree[name] = entry.is_regular_file() ? BytesOf(entry.path()) : "no plain file";
        }
    }
    return tree;
}

std::vector<std::string> Others(const Tree& one, const Tree& other) {
    std::map<std::string, std::vector<std::string>> found;
    for (const Tree* const tree : {&one, &other}) {
        for (const auto& [file, bytes] : *tree)
            found[file].push_back(bytes);
    }
    std::vector<std::string> names;
    for (const auto& [file, bytes] : found) {
        if (bytes.size() < 2 || bytes[0] != bytes[1]) names.push_back(file);
    }
    return names;
}

void ExpectOldOrNew(const Tree& left, const Tree& before, const Tree& after) {
    for (const auto& [file, bytes] : left) {
        const auto standsIn = [&file = file, &bytes = bytes](const Tree& tree) {
            const auto found = tree.find(file);
            return found != tree.end() && found->second == bytes;
        };
        EXPECT_TRUE(standsIn(before) || standsIn(after)) << file << ":\n" << bytes;
    }
    for (const auto& [file, bytes] : before)
        EXPECT_TRUE(left.contains(file)) << file << " is gone";
}

} // namespace pistaro

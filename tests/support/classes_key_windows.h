// The registry's entries of file types, changed for the length of a test.
#pragma once

#include <optional>
#include <string>

namespace pistaro {

/// While it lives, the default value of a key under HKEY_CLASSES_ROOT is this one, or the key has none.
class ClassesKey {
public:
    ClassesKey(const std::string& key, const std::optional<std::string>& value, bool expands = false);
    ~ClassesKey();
    ClassesKey(const ClassesKey&) = delete;
    ClassesKey& operator=(const ClassesKey&) = delete;

private:
    std::string key_;
    std::optional<std::string> before_;
};

} // namespace pistaro

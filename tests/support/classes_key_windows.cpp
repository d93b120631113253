// Setting and restoring a key's default value.
#include "support/classes_key_windows.h"

#include "platform/files.h"

#include <windows.h>

#include <stdexcept>

namespace pistaro {

namespace {

std::wstring Wide(const std::string& utf8) { return PathFromText(utf8).wstring(); }

std::optional<std::string> ValueOf(const std::string& key) {
    std::wstring buffer(1024, L'\0');
    DWORD bytes = 2048;
    const LSTATUS status = ::RegGetValueW(HKEY_CLASSES_ROOT, Wide(key).c_str(), nullptr, RRF_RT_ANY | RRF_NOEXPAND,
                                          nullptr, buffer.data(), &bytes);
    if (status != ERROR_SUCCESS) return std::nullopt;
    return TextFromPath(std::filesystem::path(buffer.c_str()));
}

void SetValue(const std::string& key, const std::optional<std::string>& value, bool expands) {
    HKEY open = nullptr;
    if (::RegCreateKeyExW(HKEY_CLASSES_ROOT, Wide(key).c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr, &open,
                          nullptr) != ERROR_SUCCESS) {
        throw std::runtime_error("no right to change " + key);
    }
    if (value) {
        const std::wstring wide = Wide(*value);
        ::RegSetValueExW(open, nullptr, 0, expands ? REG_EXPAND_SZ : REG_SZ,
                         reinterpret_cast<const BYTE*>(wide.c_str()),
                         static_cast<DWORD>((wide.size() + 1) * sizeof(wchar_t)));
    } else {
        ::RegDeleteValueW(open, nullptr);
    }
    ::RegCloseKey(open);
}

} // namespace

ClassesKey::ClassesKey(const std::string& key, const std::optional<std::string>& value, bool expands)
    : key_(key), before_(ValueOf(key)) {
    SetValue(key_, value, expands);
}

ClassesKey::~ClassesKey() { SetValue(key_, before_, false); }

} // namespace pistaro

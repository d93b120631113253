// UTF-8 as the characters that it stands for.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace pistaro {

/// What stands for a byte that begins no character.
inline constexpr char32_t BrokenCharacter = 0xFFFD;

void AppendCharacter(std::string& utf8, char32_t c);

/// The character at the front of `utf8`, which is not empty; it is removed from it. `BrokenCharacter` for each byte
/// that begins none.
char32_t TakeCharacter(std::string_view& utf8);

std::size_t CharacterCount(std::string_view utf8);

/// `utf8` without its last `count` characters, or without all where it has fewer.
std::string_view WithoutLastCharacters(std::string_view utf8, std::size_t count);

} // namespace pistaro

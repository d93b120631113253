// Random damage to a valid file, for tests that readers give a value or a fault whatever they are fed.
#pragma once

#include <algorithm>
#include <random>
#include <string>

namespace pistaro {

/// `bytes` with one to four random changes: bytes altered, inserted or removed, stretches copied or cut, the end lost.
inline std::string Damaged(std::string bytes, std::mt19937& random) {
    // Among any bytes those more often that mean something to a reader.
    static const std::string meaningful = "\r\n\r\n  [=-.+ED0123456789\t\x80\x81";
    const auto anyByte = [&] {
        return random() % 3 == 0 ? static_cast<char>(random() & 0xFF) : meaningful[random() % meaningful.size()];
    };
    for (unsigned changes = 1 + random() % 4; changes > 0; --changes) {
        const std::size_t at = random() % (bytes.size() + 1);
        const std::size_t length = std::min<std::size_t>(random() % 60, bytes.size() - at);
        switch (random() % 6) {
        case 0:
            if (at < bytes.size()) bytes[at] = anyByte();
            break;
        case 1:
            bytes.insert(at, 1 + random() % 3, anyByte());
            break;
        case 2:
            bytes.erase(at, length);
            break;
        case 3:
            bytes.insert(random() % (bytes.size() + 1), bytes.substr(at, length));
            break;
        case 4:
            bytes.insert(at, std::to_string(static_cast<int>(random())) + (random() % 2 == 0 ? "E9" : ""));
            break;
        default:
            if (random() % 4 == 0) bytes.resize(at);
            break;
        }
    }
    return bytes;
}

} // namespace pistaro

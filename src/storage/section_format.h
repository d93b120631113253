// What the settings file's sections look like: one table for the reader, and for the writer who goes past them.
#pragma once

#include "model/settings.h"
#include "storage/line_reader.h"

#include <cstddef>
#include <string_view>

namespace pistaro {

struct SectionFormat {
    std::string_view Header;
    std::size_t Lines;  ///< after the header; the room's are counted in the first of them
    bool EmptyLineEnds; ///< the reader then warns of what is missing
    void (*Read)(LineReader&, const Catalogue&, Settings&);
};

/// The format of the section that this line is the header of, or null.
const SectionFormat* SectionHeadedBy(std::string_view line);

} // namespace pistaro

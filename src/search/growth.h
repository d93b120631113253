// A way to find closed chains: small ones first, then changes that keep them closed and use more of the box.
#pragma once

#include "search/loop.h"

#include <cstdint>
#include <optional>

namespace pistaro {

class Growth {
public:
    virtual ~Growth() = default;

    /// A small loop, `ofBoth` systems where the box has adapters for that; nothing where this try found none.
    virtual std::optional<Loop> Begin(bool ofBoth) = 0;

    /// Tries one change. Gives whether the loop is another one now, which has at least `fewest` pieces.
    virtual bool Change(Loop& loop, int fewest) = 0;

    /// How much it has looked at so far, which the processor's time goes with: the same on every machine.
    std::int64_t Effort() const { return effort_; }

protected:
    std::int64_t effort_ = 0;
};

} // namespace pistaro

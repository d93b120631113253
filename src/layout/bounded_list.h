// A list whose greatest length is known, kept where it is declared: a circuit has thousands of them.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>

namespace pistaro {

template <typename Value, std::size_t Most>
class BoundedList {
    static_assert(std::is_trivially_copyable_v<Value>);

public:
    /// Throws std::length_error, and adds nothing, when the list is full.
    void Add(const Value& value) {
        if (count_ == Most) throw std::length_error("a list of at most " + std::to_string(Most) + " is full");
        std::construct_at(Values() + count_, value);
        ++count_;
    }

    std::size_t size() const { return count_; }
    const Value& operator[](std::size_t index) const { return begin()[index]; }
    const Value* begin() const { return reinterpret_cast<const Value*>(room_.data()); }
    const Value* end() const { return begin() + count_; }

private:
    Value* Values() { return reinterpret_cast<Value*>(room_.data()); }

    // Bytes, as the values that are not there shall cost nothing.
    alignas(Value) std::array<std::byte, Most * sizeof(Value)> room_;
    std::size_t count_ = 0;
};

} // namespace pistaro

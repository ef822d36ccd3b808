#pragma once

#include <QtGlobal>
#include <cstddef>
#include <span>

namespace ledgora::app {

/// A generator of numbers that gives the same ones everywhere for the same seed; those of the standard library's
/// distributions differ from library to library. Each thing that is made draws from a stream of its own, so that more
/// of one thing changes nothing of another.
class Dice
{
public:
    Dice(quint64 seed, quint64 stream, quint64 index) : m_state(mixed(mixed(mixed(seed) ^ stream) ^ index)) {}

    quint64 next() { return mixed(m_state += step); }
    /// 0 .. count-1; 0 when there is nothing to choose from.
    int below(int count) { return count > 1 ? int(next() % quint64(count)) : 0; }
    int between(int low, int high) { return low + below(high - low + 1); }
    bool chance(int percent) { return below(100) < percent; }
    template<class Item, size_t count>
    const Item &pick(const Item (&items)[count])
    {
        return items[size_t(below(int(count)))];
    }
    template<class Item>
    const Item &pick(std::span<const Item> items)
    {
        return items[size_t(below(int(items.size())))];
    }

private:
    static constexpr quint64 step = 0x9e3779b97f4a7c15U;
    /// Spreads every bit of the value over all bits of the result.
    static quint64 mixed(quint64 value)
    {
        value = (value + step) * 0xbf58476d1ce4e5b9U;
        value = (value ^ (value >> 27U)) * 0x94d049bb133111ebU;
        return value ^ (value >> 31U);
    }
    quint64 m_state;
};

} // namespace ledgora::app

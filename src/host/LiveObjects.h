#pragma once

namespace ledgora {

/// A member of every object that must not outlive the library's code: entry objects and screens. Counted, so that a
/// host that loaded the library by name knows when it may unload it.
class LiveObject
{
public:
    LiveObject();
    LiveObject(const LiveObject &) = delete;
    LiveObject &operator=(const LiveObject &) = delete;
    ~LiveObject();

    static int count();
};

} // namespace ledgora

// The windows that commands open. A script has none.
#pragma once

namespace pistaro {

class Windows {
public:
    virtual ~Windows() = default;

    virtual void ShowRecovered() = 0;
    virtual void ShowDrawArea() = 0;
    virtual void ShowColours() = 0;
    virtual void ShowStock() = 0;
    virtual void ShowStatistics() = 0;
    virtual void ShowAbout() = 0;
};

} // namespace pistaro

// The windows that commands open. A script has none.
#pragma once

#include <string>

namespace pistaro {

/// What is copied, in the forms that other programs take.
struct Clipping {
    std::string Text, Png, Svg;
};

class Windows {
public:
    virtual ~Windows() = default;

    virtual void ShowRecovered() = 0;
    virtual void ShowDrawArea() = 0;
    virtual void ShowColours() = 0;
    virtual void ShowStock() = 0;
    virtual void ShowStatistics() = 0;
    virtual void ShowAbout() = 0;
    virtual void ShowExport() = 0;
    virtual void ShowPrint() = 0;
    virtual void PutOnClipboard(const Clipping& clipping) = 0;
    virtual std::string ClipboardText() = 0;
};

} // namespace pistaro

// The number and text of the last failure of any operation of the service objects. The services set them; the code that
// uses the services clears them, and also sets them itself to pass a result on.
#pragma once

#include <string>

namespace qv {

struct LastError {
    int LastErrorNumber = 0;
    std::string LastErrorText;

    void Clear() {
        LastErrorNumber = 0;
        LastErrorText.clear();
    }
    void Set(int number, std::string text) {
        LastErrorNumber = number;
        LastErrorText = std::move(text);
    }
};

inline constexpr int kErrorHostNotFound = 25003;
inline constexpr int kErrorTimedOut = 25061;
inline constexpr int kErrorInvalidDomain = 20103;
inline constexpr int kErrorFileMissing = 12152;
inline constexpr int kErrorOther = 25000;        // any other failure of an exchange
inline constexpr int kErrorInterrupted = 25002;  // an exchange ended by Action 0

}  // namespace qv

// The encoder of texts.
#pragma once

#include <string>

namespace qv {

class NetCode1 {
   public:
    enum FormatCode { Base64 = 1 };

    virtual ~NetCode1() = default;

    FormatCode Format = Base64;
    std::string DecodedData;
    std::string EncodedData;  // may end in a line break

    virtual void Encode() = 0;
};

}  // namespace qv

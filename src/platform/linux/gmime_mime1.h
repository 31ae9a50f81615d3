// MIME1 and NetCode1 on GMime.
#pragma once

#include <cstdint>

#include "platform/files.h"
#include "platform/mime1.h"
#include "platform/net_code1.h"

namespace qv {

class GmimeMime1 : public MIME1 {
   public:
    explicit GmimeMime1(Files& files) : files_(files) {}
    FileResult EncodeToFile() override;

   private:
    class Body;
    FileResult EncodeFile(const Part& part, Body& body);
    void TellProgress(std::int64_t bytes);

    Files& files_;
    std::int64_t whole_ = 0;  // bytes of all files
    std::int64_t done_ = 0;
    int told_ = -1;
};

class GmimeNetCode1 : public NetCode1 {
   public:
    void Encode() override;
};

}  // namespace qv

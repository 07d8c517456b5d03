#pragma once

#include "bench/Clients.h"

namespace zlt::bench {

/// Writes the request and blocks in read until the carriage return has come.
class RawClient final : public StepClient {
 public:
    using StepClient::StepClient;
    ~RawClient() override { RawClient::close(); }

    void open() override;
    void close() override;
    bool exchange() override;

 private:
    int m_device = -1;
};

}  // namespace zlt::bench

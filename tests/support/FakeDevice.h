#pragma once

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "orlo/commands/nvme/Command.h"
#include "orlo/core/Command.h"
#include "orlo/core/CommandRecord.h"
#include "orlo/core/Device.h"
#include "orlo/core/Payload.h"
#include "orlo/core/ProtocolResult.h"
#include "orlo/core/Status.h"

namespace orlo::test {

// A Device for tests. It keeps a copy of every command it is sent, with the buffer
// given to it, and answers with the first reply whose rule matches the command. A
// command that no rule matches gets `unanswered`. Attributes are set on `attributes`.
class FakeDevice : public core::Device {
 public:
  using Match = std::function<bool(const core::Command&)>;

  struct Reply {
    core::Status status = core::Status::success();
    core::Payload payload;
    // Cloned into each record when set.
    std::shared_ptr<const core::ProtocolResult> protocolResult;
  };

  struct Sent {
    std::unique_ptr<core::Command> command;
    core::Payload dataOut;
    bool withDataOut;
  };

  explicit FakeDevice(std::set<std::string> protocols = {"NVME"})
      : protocols(std::move(protocols)) {}

  // Commands of that name.
  static Match named(std::string name) {
    return [name](const core::Command& command) { return command.name() == name; };
  }

  // NVMe commands for which `test` holds, e.g. an Identify of one CNS.
  static Match nvme(std::function<bool(const commands::nvme::Command&)> test) {
    return [test](const core::Command& command) {
      const auto* nvmeCommand = dynamic_cast<const commands::nvme::Command*>(&command);
      return nvmeCommand != nullptr && test(*nvmeCommand);
    };
  }

  void answer(Match match, Reply reply) {
    replies_.emplace_back(std::move(match), std::move(reply));
  }
  void answer(const std::string& name, Reply reply) { answer(named(name), std::move(reply)); }

  // The n-th command sent, as the NVMe command it was; fails the test if it was not one.
  const commands::nvme::Command& sentNvme(std::size_t n) const {
    return dynamic_cast<const commands::nvme::Command&>(*sent.at(n).command);
  }

  bool supportsProtocol(std::string protocol) override { return protocols.count(protocol) > 0; }

  core::CommandRecord send(core::Command& command, const core::Payload& dataOut) override {
    return answerTo(command, dataOut, true);
  }

  core::CommandRecord send(core::Command& command) override {
    return answerTo(command, core::Payload(), false);
  }

  std::set<std::string> protocols;
  std::vector<Sent> sent;
  Reply unanswered{core::Status::notImplemented(), core::Payload(), nullptr};

 private:
  core::CommandRecord answerTo(const core::Command& command, const core::Payload& dataOut,
                               bool withDataOut) {
    sent.push_back({command.clone(), dataOut, withDataOut});
    const Reply* reply = &unanswered;
    for (const auto& [match, candidate] : replies_) {
      if (match(command)) {
        reply = &candidate;
        break;
      }
    }
    core::CommandRecord record;
    record.command = command.clone();
    record.status = reply->status;
    record.inputPayload = dataOut;
    record.outputPayload = reply->payload;
    if (reply->protocolResult) record.protocolResult = reply->protocolResult->clone();
    return record;
  }

  std::vector<std::pair<Match, Reply>> replies_;
};

}  // namespace orlo::test

// The connection interface through which an IDE loads an add-in.
//
// The IDE makes the add-in's instance, calls OnConnection once with its
// Application object, and OnDisconnection once when it unloads the add-in.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "ide/object_model.hpp"
#include "vb/value.hpp"

namespace ide {

enum class ConnectMode : std::int32_t {
  AfterStartup = 0,
  Startup = 1,
  External = 2,
  CommandLine = 3
};
enum class DisconnectMode : std::int32_t { HostShutdown = 0, UserClosed = 1 };

class AddIn {
 public:
  virtual ~AddIn() = default;
  // `application` must offer the VBE interface. The add-in reports its own
  // failures; nothing throws out of this call.
  virtual void OnConnection(const ObjectPtr& application, ConnectMode mode,
                            const ObjectPtr& addin_inst, std::vector<vb::Value>& custom) = 0;
  virtual void OnDisconnection(DisconnectMode mode, std::vector<vb::Value>& custom) = 0;
};

// How an IDE makes an add-in's instance.
using AddInFactory = std::function<std::unique_ptr<AddIn>()>;

// What an IDE's add-in list shows of an add-in before loading it, as the
// add-in's registration gives it.
struct AddInListing {
  vb::Text prog_id;
  vb::Text display_name;
  vb::Text description;
  // The IDE's own values: bit 1 loads the add-in at startup, bit 4 when the
  // IDE is started from a command line.
  std::uint32_t load_behavior = 0;
};
inline constexpr std::uint32_t kLoadAtStartup = 1;

}  // namespace ide

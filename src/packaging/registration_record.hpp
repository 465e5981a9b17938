// The registration record: what makes the IDE list Vorrel.dll as an add-in.
//
// The record has three parts. The project part names the component; the
// object part describes its one public class, Connect; the designer part marks
// that class as an add-in and carries what the IDE's add-in list shows: the
// host key, the display name, the description and the load behaviour. The
// record is data only. The names the Windows side registers (the ProgID and
// the file name) are derived from it here, so that they are never written
// twice.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "packaging/guid.hpp"
#include "vb/text.hpp"

namespace packaging {

struct VersionNumber {
  std::uint16_t major = 0;
  std::uint16_t minor = 0;
};

struct ProjectPart {
  vb::Text name;
  vb::Text help_directory;
  vb::Text description;
  std::uint32_t type_library_locale = 0;
  VersionNumber type_library_version;
};

// The one public class. The numeric values are read only by the add-in
// designer and the forms runtime; they are kept as they are given.
struct ObjectPart {
  vb::Text name;
  std::optional<vb::Text> description;
  std::int32_t instancing = 0;
  std::int32_t object_number = 0;
  std::int32_t interface_value = 0;
  vb::Text default_interface;
  std::optional<vb::Text> event_interface;
  bool has_events = false;
  std::int32_t misc_status = 0;
  std::int32_t object_type = 0;
  std::int32_t toolbox_bitmap = 0;
  std::int32_t default_icon = 0;
  bool is_designer = false;
};

// When the IDE loads the add-in; the values are the IDE's own.
enum class LoadBehaviour : std::uint32_t {
  kNone = 0,
  kStartup = 1,
  kCommandLine = 4,
  kStartupAndCommandLine = 5,
};

// A word for a listing: "none", "startup", "command line",
// "startup and command line", or "other" for a value the IDE does not know.
std::string_view LoadBehaviourWord(LoadBehaviour behaviour);

struct DesignerPart {
  Guid designer_class_id;
  vb::Text host_key;
  vb::Text display_name;
  vb::Text description;
  LoadBehaviour load_behaviour = LoadBehaviour::kNone;
  std::array<std::uint32_t, 6> further_load_values{};
};

struct RegistrationRecord {
  ProjectPart project;
  ObjectPart object;  // the only object: no further one follows it
  DesignerPart designer;
};

const RegistrationRecord& Registration();

// "Vorrel.Connect": the project name, a dot, the object name.
vb::Text ProgId(const RegistrationRecord& record);
// "Vorrel.dll": the project name as a library file.
vb::Text FileName(const RegistrationRecord& record);

}  // namespace packaging

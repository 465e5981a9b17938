// The component's type library as data: what a late-bound caller and COM's
// registration see of Connect.
//
// The library holds the dual interface _Connect, the creatable class Connect
// with _Connect as its default interface, and the alias Connect___v0, which
// carries a second interface identifier of Connect. Its name, description and
// version are the registration record's project part. The IDE's own
// libraries cannot be imported where the library is built, so members that
// hold IDE or command-bar objects are typed as plain dispatch objects; a
// late-bound caller sees no difference. The library never holds an interface
// of another component: registering it would take that interface over.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "packaging/guid.hpp"
#include "packaging/registration_record.hpp"
#include "vb/text.hpp"

namespace packaging {

// The kinds a member's argument or result can take.
enum class ValueKind {
  kObject,  // a dispatch object
  kText,    // a string
};

enum class MemberAccess {
  kPropertyGet,     // reads a property
  kPropertyPutRef,  // sets an object property by reference
  kMethod,
};

struct Parameter {
  vb::Text name;
  ValueKind kind = ValueKind::kObject;
};

// One slot of the interface. A property's read and set are two slots with
// one dispatch id.
struct Member {
  vb::Text name;
  std::int32_t dispatch_id = 0;
  MemberAccess access = MemberAccess::kMethod;
  std::vector<Parameter> parameters;
  std::optional<ValueKind> result;
};

struct Interface {
  vb::Text name;
  Guid iid;
  std::vector<Member> members;  // in slot order, after IDispatch's own
};

struct ReferencedLibrary {
  vb::Text file;
  bool imported = false;  // false: its objects are typed as dispatch objects
};

struct TypeLibrary {
  vb::Text name;
  vb::Text description;
  VersionNumber version;
  std::uint32_t locale = 0;
  Guid library_id;
  std::vector<ReferencedLibrary> referenced_libraries;
  Interface default_interface;
  vb::Text class_name;
  Guid class_id;
  vb::Text alias_name;
  Guid alias_iid;
};

const TypeLibrary& Library();

}  // namespace packaging

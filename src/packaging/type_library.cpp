#include "packaging/type_library.hpp"

namespace packaging {
namespace {

std::vector<Member> ConnectMembers() {
  // Dispatch ids are plain 1..N in member order.
  std::vector<Member> members;
  std::int32_t dispatch_id = 0;
  for (const char16_t* property : {u"VBInstance", u"CompHandler", u"MenuHandler"}) {
    ++dispatch_id;
    members.push_back({property, dispatch_id, MemberAccess::kPropertyGet, {}, ValueKind::kObject});
    members.push_back({property,
                       dispatch_id,
                       MemberAccess::kPropertyPutRef,
                       {{u"value", ValueKind::kObject}},
                       std::nullopt});
  }
  members.push_back({u"AddToAddInCommandBar",
                     ++dispatch_id,
                     MemberAccess::kMethod,
                     {{u"sCaption", ValueKind::kText}},
                     ValueKind::kObject});
  return members;
}

}  // namespace

const TypeLibrary& Library() {
  static const TypeLibrary kLibrary = [] {
    const RegistrationRecord& record = Registration();
    return TypeLibrary{
        .name = record.project.name,
        .description = record.project.description,
        .version = record.project.type_library_version,
        .locale = 0x409,
        .library_id = GuidOf("{1E3E2731-1085-4E91-BB08-753A8AA88883}"),
        .referenced_libraries = {{u"STDOLE2.TLB", true},
                                 {u"VB6EXT.OLB", false},
                                 {u"MSO97.DLL", false}},
        .default_interface = {.name = record.object.default_interface,
                              .iid = GuidOf("{4D7FEA26-5A8A-4953-82E2-5C7D5322D55E}"),
                              .members = ConnectMembers()},
        .class_name = record.object.name,
        .class_id = GuidOf("{77368C63-1A2D-45DD-A6CB-7DF70DAB80FD}"),
        .alias_name = u"Connect___v0",
        .alias_iid = GuidOf("{53B26650-47AF-4E6D-9763-624220CDF76B}"),
    };
  }();
  return kLibrary;
}

}  // namespace packaging

#include "packaging/registration_record.hpp"

namespace packaging {

std::string_view LoadBehaviourWord(LoadBehaviour behaviour) {
  switch (behaviour) {
    case LoadBehaviour::kNone:
      return "none";
    case LoadBehaviour::kStartup:
      return "startup";
    case LoadBehaviour::kCommandLine:
      return "command line";
    case LoadBehaviour::kStartupAndCommandLine:
      return "startup and command line";
  }
  return "other";
}

const RegistrationRecord& Registration() {
  static const RegistrationRecord kRecord{
      .project =
          {
              .name = u"Vorrel",
              .help_directory = u"",
              .description = u"Tessaly",
              .type_library_locale = 0,
              .type_library_version = {2, 1},
          },
      .object =
          {
              .name = u"Connect",
              .description = std::nullopt,
              .instancing = 2,
              .object_number = 0,
              .interface_value = 2,
              .default_interface = u"_Connect",
              .event_interface = std::nullopt,
              .has_events = false,
              .misc_status = 0,
              .object_type = 2,
              .toolbox_bitmap = 0,
              .default_icon = 0,
              .is_designer = true,
          },
      .designer =
          {
              .designer_class_id = GuidOf("{AC0714F7-3D04-11D1-AE7D-00A0C90F26F4}"),
              .host_key = uR"(HKEY_CURRENT_USER\Software\Microsoft\Visual Basic\6.0)",
              .display_name = u"Tessaly",
              .description = u"This Add-In provides you with the ability to easily set some of "
                             u"the common properties for several of the more widely used "
                             u"controls.",
              .load_behaviour = LoadBehaviour::kStartup,
              .further_load_values = {0, 0, 1, 0, 0, 0},
          },
  };
  return kRecord;
}

vb::Text ProgId(const RegistrationRecord& record) {
  return record.project.name + u"." + record.object.name;
}

vb::Text FileName(const RegistrationRecord& record) { return record.project.name + u".dll"; }

}  // namespace packaging

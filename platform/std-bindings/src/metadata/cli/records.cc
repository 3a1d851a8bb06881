#include <tuple>
#include <utility>

#include <com/orvane/zelk/metadata/cli/records.h>

// A parameter has the suffix _arg if it would hide the member of the same name.

namespace Com::Orvane::Zelk::Metadata::Cli {

TreeIdentity::TreeIdentity(std::string path_arg, std::string name_arg)
    : path(std::move(path_arg)), name(std::move(name_arg)) {}

bool operator==(const TreeIdentity& left, const TreeIdentity& right) {
  return left.path == right.path && left.name == right.name;
}

bool operator!=(const TreeIdentity& left, const TreeIdentity& right) {
  return !(left == right);
}

bool operator<(const TreeIdentity& left, const TreeIdentity& right) {
  const int paths = left.path.compare(right.path);
  return paths < 0 || (paths == 0 && left.name < right.name);
}

namespace NamespaceSvc {

Info::Info() = default;

Info::Info(std::shared_ptr<const Identity> identity_arg, std::string description_arg,
           std::list<std::shared_ptr<const Identity>> children_arg)
    : identity(std::move(identity_arg)),
      description(std::move(description_arg)),
      children(std::move(children_arg)) {}

}  // namespace NamespaceSvc

namespace CommandSvc {

OptionInfo::OptionInfo(std::string long_option_arg, boost::optional<std::string> short_option_arg,
                       std::string field_name_arg, std::string description_arg,
                       std::string type_arg, GenericType generic_arg)
    : long_option(std::move(long_option_arg)),
      short_option(std::move(short_option_arg)),
      field_name(std::move(field_name_arg)),
      description(std::move(description_arg)),
      type(std::move(type_arg)),
      generic(std::move(generic_arg)) {}

OutputFieldInfo::OutputFieldInfo(std::string field_name_arg, std::string display_name_arg)
    : field_name(std::move(field_name_arg)), display_name(std::move(display_name_arg)) {}

OutputInfo::OutputInfo(std::string structure_id_arg,
                       std::list<std::shared_ptr<const OutputFieldInfo>> output_fields_arg)
    : structure_id(std::move(structure_id_arg)), output_fields(std::move(output_fields_arg)) {}

Info::Info() = default;

Info::Info(std::shared_ptr<const Identity> identity_arg, std::string description_arg,
           std::string service_id_arg, std::string operation_id_arg,
           std::list<std::shared_ptr<const OptionInfo>> options_arg,
           boost::optional<FormatterType> formatter_arg,
           std::list<std::shared_ptr<const OutputInfo>> output_field_list_arg)
    : identity(std::move(identity_arg)),
      description(std::move(description_arg)),
      service_id(std::move(service_id_arg)),
      operation_id(std::move(operation_id_arg)),
      options(std::move(options_arg)),
      formatter(std::move(formatter_arg)),
      output_field_list(std::move(output_field_list_arg)) {}

}  // namespace CommandSvc

}  // namespace Com::Orvane::Zelk::Metadata::Cli

#include "host/dispatch_table.hpp"

namespace tessaly {

const DispatchRow& FindDispatchRow(const vb::Text& class_name) {
  for (const DispatchRow& row : kDispatchTable) {
    if (!row.class_name || class_name == row.class_name) return row;
  }
  return kDispatchTable.back();
}

}  // namespace tessaly

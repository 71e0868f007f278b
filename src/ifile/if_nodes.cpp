// The node table.
#include "ifile/if_nodes.h"

static constexpr std::array<a_node_info, num_node_ops> make_node_table() {
  std::array<a_node_info, num_node_ops> rows = {};
#define NODE_ROW(opcode, name, arity) rows[opcode] = {#name, arity};
#include "ifile/if_nodes.def"
  return rows;
}

constinit const std::array<a_node_info, num_node_ops> if_node_info = make_node_table();

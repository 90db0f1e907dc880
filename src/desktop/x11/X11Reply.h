// An answer of an X11 display, freed with its owner.
#pragma once

#include <cstdlib>
#include <memory>

namespace brenwick {

struct FreeReply {
  void operator()(void* reply) const { std::free(reply); }
};
template <typename Reply>
using X11Reply = std::unique_ptr<Reply, FreeReply>;

}  // namespace brenwick

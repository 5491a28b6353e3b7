#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "variables/binary_handler_contract.h"

namespace quenzel7::fuzz {

/// What makes a new handler.
using HandlerMaker = std::function<HandlerRef()>;

/// Gives bytes to a new handler as its settings. Gives the promise that was not kept, empty if all were: the
/// handler refuses them by one of the numbers for settings and says why, as no property bag (331) while
/// keeping all that it has; or it takes them. Then what it writes of them is taken again and is the same when
/// it is written again and in a replica, a change key is made of it, and no object of the graphics interface
/// is left.
std::string CheckSettings(const HandlerMaker& make, std::span<const std::uint8_t> bytes);

/// The bytes as number and entries of a property bag, with what has to stand before and behind them.
std::vector<Byte> AsPropertyBag(std::span<const std::uint8_t> bytes);

/// Gives bytes to a handler of each class, as they are and as a property bag; in the platform of the thread,
/// whose operands are no project's from then on
/// and whose boxes nobody sees. Gives the class and the promise that was not kept.
std::string CheckSettingsOfAllHandlers(std::span<const std::uint8_t> bytes);

}  // namespace quenzel7::fuzz

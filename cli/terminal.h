#pragma once

namespace kavo {

/// How colours can be shown.
enum class Colours { None, True };

/// What standard output is, as far as texts for people depend on it.
struct Terminal
{
    bool isTerminal = false;
    Colours colours = Colours::None;
};

}  // namespace kavo

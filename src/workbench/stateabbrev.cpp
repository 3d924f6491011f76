#include "workbench/stateabbrev.h"

#include "base/statecodes.h"

std::optional<Key> getStateAbbrev(const QString& name)
{
    const QString code = stateCode(name);
    if (code.isEmpty())
        return Key{0};
    // The answer is a number by declaration. No code reads as one, so every known state ends here.
    bool isNumber = false;
    const Key number = code.toShort(&isNumber);
    return isNumber ? std::optional<Key>(number) : std::nullopt;
}

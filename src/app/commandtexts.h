// What the commands say to people, in their language.
#pragma once

#include <QCoreApplication>
#include <QString>

#include <functional>
#include <string>

namespace commands {

inline QString tr(const char* text)
{
    return QCoreApplication::translate("Commands", text);
}

/// The same for the command line's parser.
inline std::string help(const char* text)
{
    return tr(text).toStdString();
}

/// Refuses an argument that is empty, in the words of @p refusal: a script's empty variable must not stand
/// for the user's own folder, or for what comes without the argument.
inline std::function<std::string(const std::string&)> notEmpty(const char* refusal)
{
    return [refusal](const std::string& text) { return text.empty() ? help(refusal) : std::string(); };
}

} // namespace commands

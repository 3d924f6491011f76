// What the commands say to people, in their language.
#pragma once

#include <QCoreApplication>
#include <QString>

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

} // namespace commands

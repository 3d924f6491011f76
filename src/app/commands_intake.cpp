#include "app/commands.h"
#include "app/commandtexts.h"
#include "app/output.h"
#include "intake/cardclassifier.h"

#include <QDir>
#include <QFile>
#include <QJsonObject>
#include <QStringDecoder>

#include <CLI/CLI.hpp>

#include <cstdio>

using commands::help;
using commands::notEmpty;
using commands::tr;

namespace {

/// No list of cards is longer; something else was meant.
constexpr qint64 longestCard = 64 << 20;

/// A card's text from whatever wrote it: the byte order mark decides, else UTF-8, else one byte a character.
QString decoded(const QByteArray& bytes)
{
    const auto marked = QStringConverter::encodingForData(bytes);
    QStringDecoder decoder(marked.value_or(QStringConverter::Utf8));
    const QString text = decoder.decode(bytes);
    return decoder.hasError() ? QString::fromLatin1(bytes) : text;
}

std::optional<QString> readCard(const QString& path)
{
    QFile file(path);
    const bool opened =
        path.isEmpty() ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly);
    if (!opened) {
        printError(
            tr("The card %1 cannot be read: %2").arg(QDir::toNativeSeparators(path), file.errorString()));
        return std::nullopt;
    }
    const QByteArray bytes = file.read(longestCard + 1);
    if (file.error() != QFileDevice::NoError) {
        printError(tr("The card could not be read to its end: %1").arg(file.errorString()));
        return std::nullopt;
    }
    if (bytes.size() > longestCard) {
        printError(tr("This is too long for a business card."));
        return std::nullopt;
    }
    return decoded(bytes);
}

int parseCard(CommandContext& context, const QString& path)
{
    // A new folder gets its files, the area codes among them, when it is opened.
    Session* const session = context.openSession();
    if (!session)
        return context.exitCode;
    const QString codesPath = session->file(AreaCodes::fileName.toString());
    const auto codes = AreaCodes::load(codesPath);
    if (!codes) {
        printError(tr("The area codes could not be read from %1.").arg(QDir::toNativeSeparators(codesPath)));
        return Failed;
    }
    const auto text = readCard(path);
    if (!text)
        return Failed;
    const Card card = CardClassifier(*codes).classify(*text);
    QJsonObject fields;
    for (int field = 0; field < CardFieldCount; ++field)
        fields.insert(cardControls()[field], card.fields[field]);
    printJson(fields);
    return Done;
}

} // namespace

void addIntakeCommands(CLI::App& app, Command& chosen)
{
    auto* const command = app.add_subcommand(
        "parse-card", help("Sort the lines of a business card into the fields of an address"));
    auto file = std::make_shared<std::string>();
    command->add_option("FILE", *file, help("The card's text; without it, standard input"))
        ->check(notEmpty("the file's name is empty"));
    command->callback([=, &chosen] {
        chosen = [=](CommandContext& context) { return parseCard(context, QString::fromStdString(*file)); };
    });
}

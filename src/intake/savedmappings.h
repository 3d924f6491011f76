// Mappings that the user keeps under a name, in the settings file.
#pragma once

#include "intake/fieldmap.h"
#include "store/files/settings.h"

/// Each mapping knows the columns of the file that it was made for.
class SavedMappings
{
public:
    explicit SavedMappings(RegAccess& settings);

    [[nodiscard]] QStringList names() const;
    /// The mapping of this name; empty when there is none.
    [[nodiscard]] FieldMap mapping(const QString& name) const;
    /// The name of the mapping that was made for a file of these columns; "" for none.
    [[nodiscard]] QString nameFor(const QStringList& columns) const;
    void save(const QString& name, const QStringList& columns, const FieldMap& map);
    void remove(const QString& name);

private:
    struct Saved
    {
        QString name;
        QStringList columns;
        QStringList fields;
    };
    void write();

    RegAccess& m_settings;
    std::vector<Saved> m_saved;
};

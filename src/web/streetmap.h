// The address of a street map in the web.
#pragma once

#include <QString>

/// Where a place lies, as the map service wants to be asked.
struct MapPlace
{
    QString street; ///< first line of the address
    QString city;
    QString state;
    QString zip;
};

/// The web address that shows @p place on the map service at @p host ("https://maps.example"). Ordinary texts
/// stand in it as they are, blanks of the street as "+"; what would break the address is percent-encoded.
QString streetMapAddress(const QString& host, const MapPlace& place);

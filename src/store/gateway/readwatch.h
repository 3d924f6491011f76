// Whether everything that a screen has read could be read.
#pragma once

class DataJW;

/// Tells what is not there from what could not be read. The gateway's operations answer an empty list, "" or
/// 0 for both; a screen makes a watch, fills itself through any number of operations, and asks the watch:
///
///     const ReadWatch watch(dataJW);
///     const QStringList names = dataJW.getContactNames(company);
///     if (watch.failed())   // names are empty because of a failure, not because there are none
///         ...               // so nothing may be saved over them
///
/// A read counts as failed when its Select failed at the store or gave a number that does not fit, also where
/// the operation was called quiet. Failures of writing statements do not count. The watch looks at its
/// gateway only when it is asked, so it must not outlive it.
class ReadWatch
{
public:
    explicit ReadWatch(const DataJW& dataJW);
    /// True when a read has failed since the watch was made, or since the latest restart().
    [[nodiscard]] bool failed() const;
    void restart();

private:
    const DataJW& m_dataJW;
    int m_before;
};

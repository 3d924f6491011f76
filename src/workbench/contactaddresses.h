// The clean-up of addresses that nothing refers to any more.
#pragma once

class DataJW;

/// Deletes every Address row that neither a Contact nor a Company refers to. Nothing is deleted when one of
/// the tables cannot be read.
void cleanAddresses(DataJW& dataJW);

// The address on the Company screen.
#pragma once

class Form;
class Session;

/// Puts a new Address row into the store with what the address fields of the Company screen's form show;
/// false when that failed. A company that is saved gets it, and a new contact, who begins with a copy of the
/// company's.
bool insertAddress(Session& session, const Form& companyForm);

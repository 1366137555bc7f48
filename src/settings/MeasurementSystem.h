#pragma once

namespace tarvo {

/// Whether people of the process's locale measure in inches, as in the United States; the C locale
/// counts as theirs. The locale is looked at anew with each call.
bool LocaleMeasuresInInches();

/// The same for a locale by name, such as "de_DE".
bool LocaleMeasuresInInches(const char* localeName);

} // namespace tarvo

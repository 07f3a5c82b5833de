// A planted bad example.
#pragma once

/// @param nothing of that name
int misdocumented(int value);

// A planted bad example: it uses a name without including where that name comes from.
#pragma once

inline std::string leaning();

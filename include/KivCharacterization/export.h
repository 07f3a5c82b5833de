#pragma once

/// Marks what leaves the module. Everything else in it stays hidden.
#if defined(_WIN32)
#if defined(KivCharacterization_EXPORTS)
#define KIV_CHARACTERIZATION_API __declspec(dllexport)
#else
#define KIV_CHARACTERIZATION_API __declspec(dllimport)
#endif
#else
#define KIV_CHARACTERIZATION_API __attribute__((visibility("default")))
#endif

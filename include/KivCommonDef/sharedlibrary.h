#pragma once

/// How a symbol leaves or enters a shared library. Each library has its own macro: exported while that
/// library is built (the build defines `<Library>_EXPORTS` for it), imported everywhere else.

#if defined(_WIN32)
#define KIV_SYMBOL_EXPORT __declspec(dllexport)
#define KIV_SYMBOL_IMPORT __declspec(dllimport)
#else
#define KIV_SYMBOL_EXPORT __attribute__((visibility("default")))
#define KIV_SYMBOL_IMPORT __attribute__((visibility("default")))
#endif

#if defined(KivTaskCommand_EXPORTS)
#define KIV_TASKCOMMAND_API KIV_SYMBOL_EXPORT
#else
#define KIV_TASKCOMMAND_API KIV_SYMBOL_IMPORT
#endif

#if defined(KivCommonDef_EXPORTS)
#define KIV_COMMONDEF_API KIV_SYMBOL_EXPORT
#else
#define KIV_COMMONDEF_API KIV_SYMBOL_IMPORT
#endif

#if defined(KivRenderState_EXPORTS)
#define KIV_RENDERSTATE_API KIV_SYMBOL_EXPORT
#else
#define KIV_RENDERSTATE_API KIV_SYMBOL_IMPORT
#endif

#if defined(KivErrorOperator_EXPORTS)
#define KIV_ERROROPERATOR_API KIV_SYMBOL_EXPORT
#else
#define KIV_ERROROPERATOR_API KIV_SYMBOL_IMPORT
#endif

#if defined(KivMemoryShare_EXPORTS)
#define KIV_MEMORYSHARE_API KIV_SYMBOL_EXPORT
#else
#define KIV_MEMORYSHARE_API KIV_SYMBOL_IMPORT
#endif

#if defined(KivAnimation_EXPORTS)
#define KIV_ANIMATION_API KIV_SYMBOL_EXPORT
#else
#define KIV_ANIMATION_API KIV_SYMBOL_IMPORT
#endif

#if defined(KivFrameData_EXPORTS)
#define KIV_FRAMEDATA_API KIV_SYMBOL_EXPORT
#else
#define KIV_FRAMEDATA_API KIV_SYMBOL_IMPORT
#endif

#if defined(KivReader_EXPORTS)
#define KIV_READER_API KIV_SYMBOL_EXPORT
#else
#define KIV_READER_API KIV_SYMBOL_IMPORT
#endif

#if defined(KivManipulator_EXPORTS)
#define KIV_MANIPULATOR_API KIV_SYMBOL_EXPORT
#else
#define KIV_MANIPULATOR_API KIV_SYMBOL_IMPORT
#endif

#pragma once

// What a print dialog's side and the plug-in share: the factory's name, the identifiers and the
// tables of functions. C11 and C++20; no function of it lets an exception out, and all of them are
// called in the dialog's main thread, in this order: factory, QueryInterface, GetAPIVersion,
// Prologue, Initialize; any number of Open ... Close with Sync and GetSummaryText in between;
// Terminate, Release of the interface, Release of the instance. Terminate is due whenever Prologue
// gave a context, also when Initialize failed.

#include <stdbool.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/// Sixteen bytes in the order in which an identifier's text has them.
typedef struct TarvoUUID {
    uint8_t bytes[16];
} TarvoUUID;

/// 0 is done. -9530 stands for a null context, -30879 for a Sync without session or context.
typedef int32_t TarvoStatus;

// The type that the factory is asked for: BDB091F4-E57F-11D3-B5CC-0050E4603277.
#define TARVO_PDE_TYPE_ID                                                                          \
    {                                                                                              \
        {                                                                                          \
            0xBD, 0xB0, 0x91, 0xF4, 0xE5, 0x7F, 0x11, 0xD3, 0xB5, 0xCC, 0x00, 0x50, 0xE4, 0x60,    \
                0x32, 0x77                                                                         \
        }                                                                                          \
    }
// The interface with the dialog's operations: A996FD7E-B738-11D3-8519-0050E4603277.
#define TARVO_PDE_INTERFACE_ID                                                                     \
    {                                                                                              \
        {                                                                                          \
            0xA9, 0x96, 0xFD, 0x7E, 0xB7, 0x38, 0x11, 0xD3, 0x85, 0x19, 0x00, 0x50, 0xE4, 0x60,    \
                0x32, 0x77                                                                         \
        }                                                                                          \
    }
// What every instance is: 00000000-0000-0000-C000-000000000046.
#define TARVO_UNKNOWN_ID                                                                           \
    {                                                                                              \
        {                                                                                          \
            0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xC0, 0x00, 0x00, 0x00, 0x00, 0x00,    \
                0x00, 0x46                                                                         \
        }                                                                                          \
    }

/// QueryInterface: there is no such interface.
#define TARVO_NO_INTERFACE (-2147483647 - 1 + 4) // 0x80000004

// The factory under its identifier in Info.plist, and its name.
#define TARVO_FACTORY_ID "875CF6AF-A4B0-419E-8325-9809A507D90A"
#define TARVO_FACTORY_NAME "TarvoPDEPluginFactory"

/// The function of that name, beside the factory, names the plug-in's build. A host of another
/// build must not go on: a print session crosses as it lies in memory.
#define TARVO_BUILD_NAME "TarvoPDEBuild"
typedef const char* (*TarvoBuildFunction)(void);

/// An instance of the plug-in; it begins with its table.
typedef struct TarvoUnknown TarvoUnknown;
typedef struct TarvoUnknownTable {
    void* reserved;
    /// @param object  the interface or the instance; null when there is no such interface
    /// @return 0 or TARVO_NO_INTERFACE
    TarvoStatus (*QueryInterface)(TarvoUnknown* instance, TarvoUUID interfaceId, void** object);
    /// @return the new count; 0 for null
    uint32_t (*AddRef)(TarvoUnknown* instance);
    /// @return the new count, at 0 of which the instance is gone; 0 for null
    uint32_t (*Release)(TarvoUnknown* instance);
} TarvoUnknownTable;
struct TarvoUnknown {
    const TarvoUnknownTable* table;
};

/// Makes an instance with the count 1.
/// @param allocator  unused
/// @return null when the type is not TARVO_PDE_TYPE_ID or memory is exhausted
typedef TarvoUnknown* (*TarvoPlugInFactory)(void* allocator, TarvoUUID typeId);

/// What happened to a control. A dialog's buttons have the signature 0 and GTK's number of their
/// response: -5 is the default button, which prints, and -6 cancels.
typedef struct TarvoEvent {
    uint32_t eventClass; // TARVO_CONTROL_CLASS
    uint32_t kind;       // TARVO_CONTROL_HIT
    uint32_t signature;
    int32_t control;
} TarvoEvent;
#define TARVO_CONTROL_CLASS 0x636E746Cu // 'cntl'
#define TARVO_CONTROL_HIT 1u
#define TARVO_DEFAULT_BUTTON (-5)
#define TARVO_CANCEL_BUTTON (-6)

/// The event goes on.
#define TARVO_EVENT_NOT_HANDLED (-9874)

/// @return TARVO_EVENT_NOT_HANDLED to let the event go on, 0 to swallow it
typedef TarvoStatus (*TarvoEventHandler)(const TarvoEvent* event, void* userData);

/// What a dialog does for the plug-in: the reference that Initialize is given. It outlives the
/// context.
typedef struct TarvoPDEHost {
    void* self;
    /// The handler is asked about the dialog's buttons before anybody else; null removes it.
    void (*SetEventHandler)(void* self, TarvoEventHandler handler, void* userData);
} TarvoPDEHost;

// This interface; a host goes on with a plug-in of the same base only.
#define TARVO_PDE_VERSION 0x00010000u
typedef struct TarvoVersion {
    uint32_t build; // major in the upper 16 bits, minor in the lower
    uint32_t base;
} TarvoVersion;

// The largest pane of a plug-in that does not say it, in pixels.
#define TARVO_PANE_WIDTH 540
#define TARVO_PANE_HEIGHT 491

/// A tarvo::PMPrintSession (platform/printing/PMPrintSession.h) of the same build. It outlives the
/// context.
typedef struct TarvoPrintSession TarvoPrintSession;

struct _GtkContainer; // NOLINT(bugprone-reserved-identifier): of gtk/gtk.h

/// The dialog's operations; an interface object begins with a pointer to them.
typedef struct TarvoPDE TarvoPDE;
typedef struct TarvoPDETable {
    TarvoStatus (*Retain)(TarvoPDE* object);
    /// Clears the caller's pointer.
    TarvoStatus (*Release)(TarvoPDE** object);
    TarvoStatus (*GetAPIVersion)(TarvoPDE* object, TarvoVersion* version);
    /// Texts are UTF-8 and last until Terminate. What has no value is left as it is.
    /// @param maxWidth,maxHeight  in pixels
    TarvoStatus (*Prologue)(void** context, uint32_t* creator, const char** kind,
                            const char** title, int32_t* maxWidth, int32_t* maxHeight);
    /// @param reference   a TarvoPDEHost, or null: then nobody asks about the buttons
    /// @param parentPane  takes the pane at the first Open
    /// @return -9530 also when the printer is not ours or its description cannot be read
    TarvoStatus (*Initialize)(void* context, uint32_t flags, const TarvoPDEHost* reference,
                              struct _GtkContainer* parentPane, TarvoPrintSession* session);
    /// @param direction  true: ticket to controls; false: controls to ticket
    TarvoStatus (*Sync)(void* context, TarvoPrintSession* session, bool direction);
    /// Null-terminated arrays of UTF-8, or null; they last until the next call.
    TarvoStatus (*GetSummaryText)(void* context, const char* const** titles,
                                  const char* const** summaries);
    TarvoStatus (*Open)(void* context);
    TarvoStatus (*Close)(void* context);
    TarvoStatus (*Terminate)(void* context, TarvoStatus status);
} TarvoPDETable;
struct TarvoPDE {
    const TarvoPDETable* table;
};

#ifdef __cplusplus
}
#endif

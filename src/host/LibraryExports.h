#pragma once

// The functions by which a host that knows the library by name alone makes its objects, registers and unloads it. They
// answer 0 for yes or done, 1 for no, and a negative number for a failure.

/// Makes and destroys objects of one class. What `create` gives is destroyed by `destroy` of the same factory, on the
/// thread of the user interface, while the library is still loaded.
struct LedgoraFactory
{
    void *(*create)();
    void (*destroy)(void *object);
};

extern "C" {

/// 0 when no entry object and no screen of the library is alive, so that it may be unloaded; else 1.
int DllCanUnloadNow();

/// The factory of a public class by its full name, "PrjLedgora.ClsGST" for `ledgora::ClsGST`; negative, and no factory,
/// for any other name.
int DllGetClassObject(const char *className, const LedgoraFactory **factory);

/// Notes for each public class which library file makes it, in `ledgora/components.ini` of the user's configuration
/// folder (XDG_CONFIG_HOME): a section named after the class with the key `Library`. Negative when that file could not
/// be written.
int DllRegisterServer();

/// Takes those notes back; 0 also when there were none.
int DllUnregisterServer();

} // extern "C"

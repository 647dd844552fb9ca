/* A program that has nothing of ours but a server file and a class identifier: plain C with its own declarations of the standard
 * interfaces. Creates moxHub, walks to moxHub.Vars.vLong, calls MakeDWord by name, provokes an error, and lets go.
 *
 *   stranger /path/to/trl.obkr.mox.so */
#include <dlfcn.h>
#include <stdint.h>
#include <stdio.h>
#include <string.h>

typedef struct {
    uint32_t a;
    uint16_t b, c;
    uint8_t d[8];
} Guid;

typedef struct {
    uint16_t vt, reserved[3];
    union {
        int32_t integer;
        int16_t small;
        void* pointer;
        uint8_t all[16];
    };
} Variant;

typedef struct {
    Variant* arguments;
    int32_t* names;
    uint32_t count, named;
} Parameters;

typedef struct {
    uint16_t code, reserved;
    uint16_t *source, *description, *help;
    uint32_t context;
    void *more, *fill;
    int32_t status;
} Exception;

typedef struct Dispatch Dispatch;
typedef struct {
    int32_t (*queryInterface)(Dispatch*, const Guid*, void**);
    uint32_t (*addRef)(Dispatch*);
    uint32_t (*release)(Dispatch*);
    int32_t (*getTypeInfoCount)(Dispatch*, uint32_t*);
    int32_t (*getTypeInfo)(Dispatch*, uint32_t, uint32_t, void**);
    int32_t (*getIdsOfNames)(Dispatch*, const Guid*, uint16_t**, uint32_t, uint32_t, int32_t*);
    int32_t (*invoke)(Dispatch*, int32_t, const Guid*, uint32_t, uint16_t, Parameters*, Variant*, Exception*, uint32_t*);
} DispatchTable;
struct Dispatch {
    const DispatchTable* table;
};

typedef struct Factory Factory;
typedef struct {
    int32_t (*queryInterface)(Factory*, const Guid*, void**);
    uint32_t (*addRef)(Factory*);
    uint32_t (*release)(Factory*);
    int32_t (*createInstance)(Factory*, void*, const Guid*, void**);
    int32_t (*lockServer)(Factory*, int32_t);
} FactoryTable;
struct Factory {
    const FactoryTable* table;
};

enum { TYPE_I2 = 2, TYPE_I4 = 3, TYPE_BSTR = 8, TYPE_DISPATCH = 9, CALL = 3 /* method or property get */ };

static const Guid none;
static const Guid classFactory = {0x00000001, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
static const Guid dispatch = {0x00020400, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
static const Guid moxHub = {0x61380ADE, 0x4B65, 0x4141, {0x88, 0x8C, 0xA1, 0x04, 0x8D, 0x03, 0x77, 0x72}};

static void printText(const uint16_t* text) {
    for (; text && *text; ++text) {
        putchar(*text < 128 ? *text : '?');
    }
}

/* Calls a member by name; arguments stand last first. */
static int32_t call(Dispatch* object, const char* name, Variant* arguments, uint32_t count, Variant* result) {
    uint16_t wide[64];
    uint16_t* names = wide;
    int32_t id = 0;
    size_t i = 0;
    do {
        wide[i] = (uint16_t)name[i];
    } while (name[i++]);
    int32_t status = object->table->getIdsOfNames(object, &none, &names, 1, 0, &id);
    if (status < 0) {
        printf("  %s: unknown name, status 0x%08X\n", name, (unsigned)status);
        return status;
    }
    Parameters parameters = {arguments, NULL, count, 0};
    Exception exception;
    memset(&exception, 0, sizeof exception);
    memset(result, 0, sizeof *result);
    status = object->table->invoke(object, id, &none, 0, CALL, &parameters, result, &exception, NULL);
    if (status < 0) {
        printf("  %s: status 0x%08X, run-time error %d, \"", name, (unsigned)status, exception.status & 0xFFFF);
        printText(exception.description);
        printf("\" from \"");
        printText(exception.source);
        printf("\"\n"); /* the two texts would be freed by SysFreeString of the platform library */
    }
    return status;
}

int main(int argc, char** argv) {
    if (argc != 2) {
        fprintf(stderr, "usage: stranger SERVER-FILE\n");
        return 2;
    }
    void* file = dlopen(argv[1], RTLD_NOW);
    if (!file) {
        fprintf(stderr, "%s\n", dlerror());
        return 1;
    }
    int32_t (*getClassObject)(const Guid*, const Guid*, void**);
    int32_t (*canUnloadNow)(void);
    *(void**)&getClassObject = dlsym(file, "DllGetClassObject");
    *(void**)&canUnloadNow = dlsym(file, "DllCanUnloadNow");

    Factory* factory = NULL;
    Dispatch* hub = NULL;
    if (getClassObject(&moxHub, &classFactory, (void**)&factory) < 0 ||
        factory->table->createInstance(factory, NULL, &dispatch, (void**)&hub) < 0) {
        fprintf(stderr, "the server does not make a moxHub\n");
        return 1;
    }
    printf("created moxHub from its class identifier\n");

    Variant vars, longs, result;
    Variant arguments[2] = {{.vt = TYPE_I2, .small = 2}, {.vt = TYPE_I2, .small = 1}};
    int failed = call(hub, "Vars", NULL, 0, &vars) < 0 || call(vars.pointer, "vLong", NULL, 0, &longs) < 0 ||
                 call(longs.pointer, "makedword", arguments, 2, &result) < 0;
    if (!failed) {
        printf("  moxHub.Vars.vLong.MakeDWord(1, 2) = %d\n", result.integer);
        failed = result.vt != TYPE_I4 || result.integer != 0x20001;
    }
    call(hub, "INet", NULL, 0, &result);
    call(hub, "NoSuchMember", NULL, 0, &result);

    hub->table->release(hub);
    printf("  the child outlives its hub: ");
    failed |= call(longs.pointer, "MakeDWord", arguments, 2, &result) < 0;
    printf("%d\n", result.integer);
    ((Dispatch*)longs.pointer)->table->release(longs.pointer);
    ((Dispatch*)vars.pointer)->table->release(vars.pointer);
    factory->table->release(factory);
    failed |= canUnloadNow() != 0;
    printf("everything let go: the file %s be unloaded\n", canUnloadNow() == 0 ? "can" : "cannot");
    return failed;
}

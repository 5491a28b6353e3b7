/*
 * A host in plain C: loads the library, makes a rectangle, sets its properties by name, has it drawn and
 * looks at the pixels.
 *
 *     rectangle LIBRARY
 *
 * LIBRARY is the path of libquenzel7.so. Tells what it saw on standard output and ends with status 0; a step
 * that fails is told with its result on standard error and ends the program with status 1.
 */
#include <dlfcn.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <uchar.h>

#include "server/quenzel7_automation.h"

enum { kWidth = 100, kHeight = 80 };
static const ULONG kPaper = 0x00FFFFFF;
/* Numbers 0 and 2 of the palette of the embedded services. */
static const ULONG kBorder = 0x00E00000, kBody = 0x000000C8;

/* The place of the rectangle on the surface. */
enum { kLeft = 10, kTop = 20, kRectangleWidth = 50, kRectangleHeight = 30 };

/* What the program calls of the library. */
static struct {
  HRESULT (*classIdFromName)(const OLECHAR*, CLSID*);
  HRESULT (*interfaceIdFromName)(const OLECHAR*, IID*);
  HRESULT (*getClassObject)(REFCLSID, REFIID, void**);
  HRESULT (*canUnloadNow)(void);
  HRESULT (*surfaceCreate)(LONG, LONG, ULONG, Quenzel7Surface**);
  HRESULT (*surfaceContext)(Quenzel7Surface*, LONG*);
  HRESULT (*surfacePixels)(Quenzel7Surface*, ULONG*, ULONG);
  HRESULT (*surfaceDestroy)(Quenzel7Surface*);
  const char* (*lastError)(void);
  void (*freeText)(BSTR);
  const IID* nullId;
  const IID* classFactoryId;
  const IID* dispatchId;
} library;

static void Stop(const char* step, const char* name, const char* why) {
  fprintf(stderr, "rectangle: %s %s: %s\n", step, name, why);
  exit(1);
}

static void Require(HRESULT result, const char* step, const char* name) {
  char why[32];
  if (result == S_OK) return;
  snprintf(why, sizeof why, "result 0x%08X", (unsigned)result);
  Stop(step, name, why);
}

/* A failure of one of the functions of surfaces, which tell more. */
static void RequireSurface(HRESULT result, const char* step) {
  if (result != S_OK) Require(result, step, library.lastError());
}

/* Puts the address of a name of the library into a pointer to a function or to data. */
static void Find(void* handle, const char* name, void* pointer) {
  void* const address = dlsym(handle, name);
  if (address == NULL) Stop("finding", name, dlerror());
  memcpy(pointer, &address, sizeof address);
}

static void Load(void* handle) {
  Find(handle, "Quenzel7ClassIdFromName", &library.classIdFromName);
  Find(handle, "Quenzel7InterfaceIdFromName", &library.interfaceIdFromName);
  Find(handle, "DllGetClassObject", &library.getClassObject);
  Find(handle, "DllCanUnloadNow", &library.canUnloadNow);
  Find(handle, "Quenzel7SurfaceCreate", &library.surfaceCreate);
  Find(handle, "Quenzel7SurfaceContext", &library.surfaceContext);
  Find(handle, "Quenzel7SurfacePixels", &library.surfacePixels);
  Find(handle, "Quenzel7SurfaceDestroy", &library.surfaceDestroy);
  Find(handle, "Quenzel7LastError", &library.lastError);
  Find(handle, "SysFreeString", &library.freeText);
  Find(handle, "IID_NULL", &library.nullId);
  Find(handle, "IID_IClassFactory", &library.classFactoryId);
  Find(handle, "IID_IDispatch", &library.dispatchId);
}

/* An object of a class, by the way of its class factory. */
static IDispatch* NewObject(const OLECHAR* className) {
  CLSID clsid;
  void* made;
  Require(library.classIdFromName(className, &clsid), "asking for the number of", "the class");
  Require(library.getClassObject(&clsid, library.classFactoryId, &made), "asking for", "the class factory");
  IClassFactory* const factory = made;
  Require(factory->lpVtbl->CreateInstance(factory, NULL, library.dispatchId, &made), "making", "the object");
  factory->lpVtbl->Release(factory);
  return made;
}

/* Another face of an object. */
static IDispatch* Face(IDispatch* object, const OLECHAR* interfaceName) {
  IID iid;
  void* face;
  Require(library.interfaceIdFromName(interfaceName, &iid), "asking for the number of", "the interface");
  Require(object->lpVtbl->QueryInterface(object, &iid, &face), "asking for", "the interface");
  return face;
}

/* Calls a member by name; `name` is one of ASCII letters. */
static void Call(IDispatch* object, const char* name, WORD how, DISPPARAMS arguments, VARIANT* result) {
  OLECHAR wide[64] = {0};
  OLECHAR* names[1] = {wide};
  DISPID member;
  EXCEPINFO raised;
  UINT badArgument = 0;
  HRESULT called;
  for (size_t at = 0; name[at] != 0 && at < 63; ++at) wide[at] = (OLECHAR)name[at];
  Require(object->lpVtbl->GetIDsOfNames(object, library.nullId, names, 1, 0, &member), "finding member",
          name);
  memset(&raised, 0, sizeof raised);
  called = object->lpVtbl->Invoke(object, member, library.nullId, 0, how, &arguments, result, &raised,
                                  &badArgument);
  library.freeText(raised.bstrSource);
  library.freeText(raised.bstrDescription);
  library.freeText(raised.bstrHelpFile);
  Require(called, "calling", name);
}

static void Put(IDispatch* object, const char* name, LONG number) {
  DISPID put = DISPID_PROPERTYPUT;
  VARIANT value = {.vt = VT_I4, .value = {.lVal = number}};
  Call(object, name, DISPATCH_PROPERTYPUT, (DISPPARAMS){&value, &put, 1, 1}, NULL);
}

static LONG Get(IDispatch* object, const char* name) {
  VARIANT value = {.vt = VT_EMPTY};
  Call(object, name, DISPATCH_PROPERTYGET, (DISPPARAMS){NULL, NULL, 0, 0}, &value);
  if (value.vt != VT_I4) Stop("reading", name, "no 32-bit number came back");
  return value.value.lVal;
}

/* Draws without the marks at the corners. Arguments stand last one first. */
static void Draw(IDispatch* element, LONG hdc) {
  VARIANT arguments[2] = {{.vt = VT_BOOL, .value = {.boolVal = VARIANT_FALSE}},
                          {.vt = VT_I4, .value = {.lVal = hdc}}};
  Call(element, "Draw", DISPATCH_METHOD, (DISPPARAMS){arguments, NULL, 2, 0}, NULL);
}

static ULONG pixels[kWidth * kHeight];

static void Look(const char* where, LONG x, LONG y, ULONG expected) {
  const ULONG seen = pixels[y * kWidth + x];
  char why[64];
  printf("%-28s (%2d, %2d): #%06X\n", where, (int)x, (int)y, (unsigned)seen);
  if (seen == expected) return;
  snprintf(why, sizeof why, "the pixel is #%06X instead of #%06X", (unsigned)seen, (unsigned)expected);
  Stop("looking", where, why);
}

int main(int argc, char** argv) {
  if (argc != 2) Stop("usage:", "rectangle LIBRARY", "the path of the library is missing");
  void* const handle = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
  if (handle == NULL) Stop("loading", argv[1], dlerror());
  Load(handle);

  IDispatch* const rectangle = NewObject(u"Quenzel7.clsRectangle");
  static const struct {
    const char* name;
    LONG value;
  } kProperties[] = {{"Xs", kLeft},   {"Ys", kTop},     {"Dx", kRectangleWidth}, {"Dy", kRectangleHeight},
                     {"PenWidth", 1}, {"FillStyle", 1}, {"ColorFore", 0},        {"ColorBack", 2}};
  for (size_t at = 0; at < sizeof kProperties / sizeof kProperties[0]; ++at) {
    Put(rectangle, kProperties[at].name, kProperties[at].value);
    if (Get(rectangle, kProperties[at].name) != kProperties[at].value) {
      Stop("reading", kProperties[at].name, "another number came back than was put");
    }
  }

  Quenzel7Surface* surface;
  LONG hdc;
  RequireSurface(library.surfaceCreate(kWidth, kHeight, kPaper, &surface), "making a surface");
  RequireSurface(library.surfaceContext(surface, &hdc), "asking for its context");
  IDispatch* const element = Face(rectangle, u"ItfHmiElement");
  Draw(element, hdc);
  RequireSurface(library.surfacePixels(surface, pixels, kWidth * kHeight), "asking for its pixels");
  Look("border, top left", kLeft, kTop, kBorder);
  Look("border, bottom right", kLeft + kRectangleWidth - 1, kTop + kRectangleHeight - 1, kBorder);
  Look("body", kLeft + kRectangleWidth / 2, kTop + kRectangleHeight / 2, kBody);
  Look("left of it", kLeft - 1, kTop, kPaper);
  Look("below it", kLeft, kTop + kRectangleHeight, kPaper);
  RequireSurface(library.surfaceDestroy(surface), "destroying the surface");

  if (library.canUnloadNow() != S_FALSE)
    Stop("asking", "DllCanUnloadNow", "it may go although objects are held");
  element->lpVtbl->Release(element);
  rectangle->lpVtbl->Release(rectangle);
  Require(library.canUnloadNow(), "asking", "DllCanUnloadNow");
  puts("all released");
  return 0;
}

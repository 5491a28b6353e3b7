/*
 * The binary interface of Quenzel7: what a host in any language needs to load the library and to work with
 * its objects. Plain C, also good for C++.
 *
 * The types have the layouts and the numbers that automation publishes for 64-bit programs, so that a host
 * for which they are at home needs nothing of this. They stand here for the platforms that do not ship them.
 *
 * Texts are UTF-16. Whoever gets a text, an array or an object as a result owns it: SysFreeString,
 * SafeArrayDestroy, Release, or VariantClear for whatever a VARIANT holds. Objects belong to the thread that
 * made them: every call from another one, AddRef and Release aside, gives RPC_E_WRONG_THREAD.
 */
#ifndef QUENZEL7_AUTOMATION_H
#define QUENZEL7_AUTOMATION_H

#include <stdint.h>

#ifdef __cplusplus
#define QUENZEL7_API extern "C" __attribute__((visibility("default")))
#else
#define QUENZEL7_API extern __attribute__((visibility("default")))
#endif
#define STDMETHODCALLTYPE

typedef int32_t HRESULT;
typedef int32_t LONG;
typedef uint32_t ULONG;
typedef uint32_t UINT;
typedef uint32_t DWORD;
typedef uint16_t WORD;
typedef uint16_t USHORT;
typedef int16_t SHORT;
typedef uint8_t BYTE;
typedef int64_t LONGLONG;
typedef int32_t BOOL;
typedef uint16_t OLECHAR;
/* A text of the interface: the number of its bytes in the four bytes before it, a zero behind it. */
typedef OLECHAR* BSTR;
typedef int16_t VARIANT_BOOL;
typedef uint16_t VARTYPE;
typedef LONG DISPID;
typedef LONG SCODE;
typedef uint32_t LCID;

#define VARIANT_TRUE ((VARIANT_BOOL)-1)
#define VARIANT_FALSE ((VARIANT_BOOL)0)

typedef struct GUID {
  uint32_t Data1;
  uint16_t Data2;
  uint16_t Data3;
  uint8_t Data4[8];
} GUID;
typedef GUID IID;
typedef GUID CLSID;
typedef const GUID* REFGUID;
typedef const IID* REFIID;
typedef const CLSID* REFCLSID;

/* Results. Those below 0 are failures. */
#define QUENZEL7_RESULT(number) ((HRESULT)(number))
#define S_OK QUENZEL7_RESULT(0)
#define S_FALSE QUENZEL7_RESULT(1)
#define E_NOTIMPL QUENZEL7_RESULT(0x80004001u)
#define E_NOINTERFACE QUENZEL7_RESULT(0x80004002u)
#define E_POINTER QUENZEL7_RESULT(0x80004003u)
#define E_FAIL QUENZEL7_RESULT(0x80004005u)
#define E_UNEXPECTED QUENZEL7_RESULT(0x8000FFFFu)
#define E_OUTOFMEMORY QUENZEL7_RESULT(0x8007000Eu)
#define E_INVALIDARG QUENZEL7_RESULT(0x80070057u)
#define RPC_E_WRONG_THREAD QUENZEL7_RESULT(0x8001010Eu)
#define CLASS_E_NOAGGREGATION QUENZEL7_RESULT(0x80040110u)
#define CLASS_E_CLASSNOTAVAILABLE QUENZEL7_RESULT(0x80040111u)
#define SELFREG_E_CLASS QUENZEL7_RESULT(0x80040201u)
#define DISP_E_UNKNOWNINTERFACE QUENZEL7_RESULT(0x80020001u)
#define DISP_E_MEMBERNOTFOUND QUENZEL7_RESULT(0x80020003u)
#define DISP_E_PARAMNOTFOUND QUENZEL7_RESULT(0x80020004u)
#define DISP_E_TYPEMISMATCH QUENZEL7_RESULT(0x80020005u)
#define DISP_E_UNKNOWNNAME QUENZEL7_RESULT(0x80020006u)
#define DISP_E_NONAMEDARGS QUENZEL7_RESULT(0x80020007u)
#define DISP_E_BADVARTYPE QUENZEL7_RESULT(0x80020008u)
#define DISP_E_EXCEPTION QUENZEL7_RESULT(0x80020009u)
#define DISP_E_OVERFLOW QUENZEL7_RESULT(0x8002000Au)
#define DISP_E_BADINDEX QUENZEL7_RESULT(0x8002000Bu)
#define DISP_E_ARRAYISLOCKED QUENZEL7_RESULT(0x8002000Du)
#define DISP_E_BADPARAMCOUNT QUENZEL7_RESULT(0x8002000Eu)
#define DISP_E_PARAMNOTOPTIONAL QUENZEL7_RESULT(0x8002000Fu)
#define DISP_E_DIVBYZERO QUENZEL7_RESULT(0x80020012u)
#define SUCCEEDED(result) ((HRESULT)(result) >= 0)
#define FAILED(result) ((HRESULT)(result) < 0)

/* What a VARIANT holds. */
enum VARENUM {
  VT_EMPTY = 0,
  VT_NULL = 1,
  VT_I2 = 2,
  VT_I4 = 3,
  VT_R4 = 4,
  VT_R8 = 5,
  VT_CY = 6,
  VT_DATE = 7,
  VT_BSTR = 8,
  VT_DISPATCH = 9,
  VT_ERROR = 10,
  VT_BOOL = 11,
  VT_VARIANT = 12,
  VT_UNKNOWN = 13,
  VT_DECIMAL = 14,
  VT_I1 = 16,
  VT_UI1 = 17,
  VT_UI2 = 18,
  VT_UI4 = 19,
  VT_I8 = 20,
  VT_UI8 = 21,
  VT_INT = 22,
  VT_UINT = 23,
  VT_ARRAY = 0x2000,
  VT_BYREF = 0x4000
};

/* A fixed-point number with four decimals. */
typedef union CY {
  struct {
    ULONG Lo;
    LONG Hi;
  } parts;
  LONGLONG int64;
} CY;

typedef struct SAFEARRAYBOUND {
  ULONG cElements;
  LONG lLbound;
} SAFEARRAYBOUND;

/* An array. Its cells lie with the first index running fastest; rgsabound has the last dimension first. */
typedef struct SAFEARRAY {
  USHORT cDims;
  USHORT fFeatures;
  ULONG cbElements;
  ULONG cLocks;
  void* pvData;
  SAFEARRAYBOUND rgsabound[1];
} SAFEARRAY;

/* Features of an array. Sixteen bytes before an array with FADF_HAVEVARTYPE end in the VARTYPE of its cells,
   in four bytes. */
#define FADF_FIXEDSIZE 0x0010
#define FADF_HAVEVARTYPE 0x0080
#define FADF_BSTR 0x0100
#define FADF_UNKNOWN 0x0200
#define FADF_DISPATCH 0x0400
#define FADF_VARIANT 0x0800

typedef struct IUnknown IUnknown;
typedef struct IClassFactory IClassFactory;
typedef struct IDispatch IDispatch;
typedef struct IEnumVARIANT IEnumVARIANT;
typedef struct ITypeInfo ITypeInfo;

typedef struct VARIANT {
  VARTYPE vt;
  WORD wReserved1;
  WORD wReserved2;
  WORD wReserved3;
  union {
    LONGLONG llVal;
    LONG lVal;
    BYTE bVal;
    SHORT iVal;
    float fltVal;
    double dblVal;
    VARIANT_BOOL boolVal;
    SCODE scode;
    CY cyVal;
    double date;
    BSTR bstrVal;
    IUnknown* punkVal;
    IDispatch* pdispVal;
    SAFEARRAY* parray;
    BYTE* pbVal;
    SHORT* piVal;
    LONG* plVal;
    LONGLONG* pllVal;
    float* pfltVal;
    double* pdblVal;
    VARIANT_BOOL* pboolVal;
    SCODE* pscode;
    CY* pcyVal;
    double* pdate;
    BSTR* pbstrVal;
    IUnknown** ppunkVal;
    IDispatch** ppdispVal;
    SAFEARRAY** pparray;
    struct VARIANT* pvarVal;
    void* byref;
    int8_t cVal;
    USHORT uiVal;
    ULONG ulVal;
    uint64_t ullVal;
    int32_t intVal;
    uint32_t uintVal;
    int8_t* pcVal;
    USHORT* puiVal;
    ULONG* pulVal;
    uint64_t* pullVal;
    int32_t* pintVal;
    uint32_t* puintVal;
    struct {
      void* pvRecord;
      void* pRecInfo;
    } record;
  } value;
} VARIANT;
typedef VARIANT VARIANTARG;

/* The arguments of a call: the last one first, those with a name before those without. */
typedef struct DISPPARAMS {
  VARIANTARG* rgvarg;
  DISPID* rgdispidNamedArgs;
  UINT cArgs;
  UINT cNamedArgs;
} DISPPARAMS;

typedef struct EXCEPINFO {
  WORD wCode;
  WORD wReserved;
  BSTR bstrSource;
  BSTR bstrDescription;
  BSTR bstrHelpFile;
  DWORD dwHelpContext;
  void* pvReserved;
  HRESULT(STDMETHODCALLTYPE* pfnDeferredFillIn)(struct EXCEPINFO*);
  SCODE scode;
} EXCEPINFO;

/* How a member is called. */
#define DISPATCH_METHOD 0x1
#define DISPATCH_PROPERTYGET 0x2
#define DISPATCH_PROPERTYPUT 0x4
#define DISPATCH_PROPERTYPUTREF 0x8

/* Numbers of members that every host knows. */
#define DISPID_UNKNOWN (-1)
#define DISPID_VALUE 0
#define DISPID_PROPERTYPUT (-3)
#define DISPID_NEWENUM (-4)

typedef struct IUnknownVtbl {
  HRESULT(STDMETHODCALLTYPE* QueryInterface)(IUnknown*, REFIID, void**);
  ULONG(STDMETHODCALLTYPE* AddRef)(IUnknown*);
  ULONG(STDMETHODCALLTYPE* Release)(IUnknown*);
} IUnknownVtbl;
struct IUnknown {
  const IUnknownVtbl* lpVtbl;
};

typedef struct IClassFactoryVtbl {
  HRESULT(STDMETHODCALLTYPE* QueryInterface)(IClassFactory*, REFIID, void**);
  ULONG(STDMETHODCALLTYPE* AddRef)(IClassFactory*);
  ULONG(STDMETHODCALLTYPE* Release)(IClassFactory*);
  HRESULT(STDMETHODCALLTYPE* CreateInstance)(IClassFactory*, IUnknown* outer, REFIID, void**);
  HRESULT(STDMETHODCALLTYPE* LockServer)(IClassFactory*, BOOL lock);
} IClassFactoryVtbl;
struct IClassFactory {
  const IClassFactoryVtbl* lpVtbl;
};

typedef struct IDispatchVtbl {
  HRESULT(STDMETHODCALLTYPE* QueryInterface)(IDispatch*, REFIID, void**);
  ULONG(STDMETHODCALLTYPE* AddRef)(IDispatch*);
  ULONG(STDMETHODCALLTYPE* Release)(IDispatch*);
  HRESULT(STDMETHODCALLTYPE* GetTypeInfoCount)(IDispatch*, UINT* count);
  HRESULT(STDMETHODCALLTYPE* GetTypeInfo)(IDispatch*, UINT index, LCID, ITypeInfo**);
  HRESULT(STDMETHODCALLTYPE* GetIDsOfNames)(IDispatch*, REFIID, OLECHAR** names, UINT count, LCID, DISPID*);
  HRESULT(STDMETHODCALLTYPE* Invoke)
  (IDispatch*, DISPID, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result, EXCEPINFO*, UINT* badArgument);
} IDispatchVtbl;
struct IDispatch {
  const IDispatchVtbl* lpVtbl;
};

typedef struct IEnumVARIANTVtbl {
  HRESULT(STDMETHODCALLTYPE* QueryInterface)(IEnumVARIANT*, REFIID, void**);
  ULONG(STDMETHODCALLTYPE* AddRef)(IEnumVARIANT*);
  ULONG(STDMETHODCALLTYPE* Release)(IEnumVARIANT*);
  HRESULT(STDMETHODCALLTYPE* Next)(IEnumVARIANT*, ULONG count, VARIANT* values, ULONG* fetched);
  HRESULT(STDMETHODCALLTYPE* Skip)(IEnumVARIANT*, ULONG count);
  HRESULT(STDMETHODCALLTYPE* Reset)(IEnumVARIANT*);
  HRESULT(STDMETHODCALLTYPE* Clone)(IEnumVARIANT*, IEnumVARIANT**);
} IEnumVARIANTVtbl;
struct IEnumVARIANT {
  const IEnumVARIANTVtbl* lpVtbl;
};

/* {00000000-0000-0000-0000-000000000000} */
QUENZEL7_API const IID IID_NULL;
/* {00000000-0000-0000-C000-000000000046} */
QUENZEL7_API const IID IID_IUnknown;
/* {00000001-0000-0000-C000-000000000046} */
QUENZEL7_API const IID IID_IClassFactory;
/* {00020400-0000-0000-C000-000000000046} */
QUENZEL7_API const IID IID_IDispatch;
/* {00020404-0000-0000-C000-000000000046} */
QUENZEL7_API const IID IID_IEnumVARIANT;

/* Texts. A null text is an empty one. Those that make one give null when there is no room. */
QUENZEL7_API BSTR SysAllocString(const OLECHAR* text);
/* The first characters of a text; of a null one that many zeros. */
QUENZEL7_API BSTR SysAllocStringLen(const OLECHAR* text, UINT characters);
QUENZEL7_API BSTR SysAllocStringByteLen(const char* bytes, UINT count);
QUENZEL7_API void SysFreeString(BSTR text);
/* In characters of 16 bits. */
QUENZEL7_API UINT SysStringLen(BSTR text);
QUENZEL7_API UINT SysStringByteLen(BSTR text);

/* Values. Null pointers give E_INVALIDARG, a value of a kind that is none DISP_E_BADVARTYPE, one whose array
   someone is at DISP_E_ARRAYISLOCKED. A failure leaves all as it is. */
QUENZEL7_API void VariantInit(VARIANTARG* value);
QUENZEL7_API HRESULT VariantClear(VARIANTARG* value);
/* `to` is cleared first and gets a copy of its own: texts and arrays are copied, an object counted. */
QUENZEL7_API HRESULT VariantCopy(VARIANTARG* to, const VARIANTARG* from);

/* Arrays. Dimensions count from 1, bounds are given in their order. Null where there is no room, the cells
   would take 4 GiB, an upper bound is no number of 32 bits, there are not 1 to 65535 dimensions, or the kind
   of cells is none of VT_I2, I4, R4, R8, CY, DATE, BSTR, DISPATCH, ERROR, BOOL, VARIANT, UNKNOWN, I1, UI1,
   UI2, UI4, I8, UI8, INT and UINT. */
QUENZEL7_API SAFEARRAY* SafeArrayCreate(VARTYPE cells, UINT dimensions, SAFEARRAYBOUND* bounds);
QUENZEL7_API SAFEARRAY* SafeArrayCreateVector(VARTYPE cells, LONG lowerBound, ULONG count);
QUENZEL7_API HRESULT SafeArrayDestroy(SAFEARRAY* array);
QUENZEL7_API HRESULT SafeArrayCopy(SAFEARRAY* array, SAFEARRAY** copy);
QUENZEL7_API UINT SafeArrayGetDim(SAFEARRAY* array);
QUENZEL7_API UINT SafeArrayGetElemsize(SAFEARRAY* array);
QUENZEL7_API HRESULT SafeArrayGetVartype(SAFEARRAY* array, VARTYPE* cells);
QUENZEL7_API HRESULT SafeArrayGetLBound(SAFEARRAY* array, UINT dimension, LONG* bound);
QUENZEL7_API HRESULT SafeArrayGetUBound(SAFEARRAY* array, UINT dimension, LONG* bound);
/* The cells, which stay where they are until SafeArrayUnaccessData. */
QUENZEL7_API HRESULT SafeArrayAccessData(SAFEARRAY* array, void** cells);
QUENZEL7_API HRESULT SafeArrayUnaccessData(SAFEARRAY* array);
/* One cell: a copy of it, and a copy into it. `indices` has the first one first. A text and an object are put
   by the BSTR or the pointer itself, other cells by a pointer to them; what is got goes to where `cell`
   points, over whatever is there. */
QUENZEL7_API HRESULT SafeArrayGetElement(SAFEARRAY* array, LONG* indices, void* cell);
QUENZEL7_API HRESULT SafeArrayPutElement(SAFEARRAY* array, LONG* indices, void* cell);

/* The way to the objects. */
QUENZEL7_API HRESULT DllGetClassObject(REFCLSID clsid, REFIID iid, void** factory);
/* S_OK when no object is held and no factory is locked, otherwise S_FALSE. */
QUENZEL7_API HRESULT DllCanUnloadNow(void);
/* Writes down, for this user, which classes there are and where this library is. */
QUENZEL7_API HRESULT DllRegisterServer(void);
QUENZEL7_API HRESULT DllUnregisterServer(void);

/* The number of a class by its programmatic name, "Quenzel7.clsRectangle": CLASS_E_CLASSNOTAVAILABLE for a
   name that is none of a class that hosts can create. Names are compared without regard to the case of ASCII
   letters. */
QUENZEL7_API HRESULT Quenzel7ClassIdFromName(const OLECHAR* name, CLSID* clsid);
/* The number of an interface by its name, "ItfHmiElement": E_NOINTERFACE for a name that is none. */
QUENZEL7_API HRESULT Quenzel7InterfaceIdFromName(const OLECHAR* name, IID* iid);

/* The services of the calling thread, as an object with members by name. */
QUENZEL7_API HRESULT Quenzel7GetHostServices(IDispatch** services);

/* Surfaces to draw on: 32 bits a pixel, 0x00RRGGBB, rows from the top without gaps. Surfaces belong to the
   thread that made them. A failure is told by Quenzel7LastError. */
typedef struct Quenzel7Surface Quenzel7Surface;

/* A surface of that size in pixels, 1 to 32767, all of it in one colour, 0x00RRGGBB. E_INVALIDARG for another
 * size. */
QUENZEL7_API HRESULT Quenzel7SurfaceCreate(LONG width, LONG height, ULONG color, Quenzel7Surface** surface);
/* The device context that draws on it, for the pHdc of every member. It ends with the surface. */
QUENZEL7_API HRESULT Quenzel7SurfaceContext(Quenzel7Surface* surface, LONG* hdc);
QUENZEL7_API HRESULT Quenzel7SurfaceSize(Quenzel7Surface* surface, LONG* width, LONG* height);
/* Copies all pixels; `count` is how many there is room for, at least width x height. */
QUENZEL7_API HRESULT Quenzel7SurfacePixels(Quenzel7Surface* surface, ULONG* pixels, ULONG count);
/* The picture as the bytes of a PNG file, in an array of VT_UI1. */
QUENZEL7_API HRESULT Quenzel7SurfacePng(Quenzel7Surface* surface, SAFEARRAY** bytes);
/* Writes a PNG file; the path is UTF-8. The file takes its place complete or not at all. */
QUENZEL7_API HRESULT Quenzel7SurfaceSavePng(Quenzel7Surface* surface, const char* path);
QUENZEL7_API HRESULT Quenzel7SurfaceDestroy(Quenzel7Surface* surface);

/* What went wrong in the last of these functions that failed on this thread, UTF-8; "" when none did. Good
   until the next one fails. */
QUENZEL7_API const char* Quenzel7LastError(void);

#endif /* QUENZEL7_AUTOMATION_H */

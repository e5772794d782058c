// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

#include <QString>

/// The calling convention of the library: that of its 32-bit Windows build, the usual one elsewhere.
#if defined(Q_OS_WIN32) && !defined(Q_OS_WIN64)
#define TESSERA_MITAB_CALL __stdcall
#else
#define TESSERA_MITAB_CALL
#endif
#define TESSERA_MITAB_ENTRY TESSERA_CORE_EXPORT extern

/// Binds the C interface of the MITAB library, which reads and writes MapInfo TAB and MIF files, while the program
/// runs. Nothing is linked: each entry point is a variable of its name, null as long as there is none.
namespace tessera {

/// The library file that MITAB_load takes: a bare name is looked for where the platform looks for libraries.
TESSERA_CORE_EXPORT extern QString LibPath;

/// What came of the last MITAB_load: 0, or one of the following.
TESSERA_CORE_EXPORT extern int MITAB_LoadErr;
inline constexpr int MITAB_NoLibrary = -2;
inline constexpr int MITAB_NoVersion = -3;  ///< The library does not tell its version.
inline constexpr int MITAB_WrongVersion = -4;
/// The only version that is taken: 1.7.0.
inline constexpr int MITAB_Version = 1007000;

/// Loads the library LibPath and finds its entry points; those that it lacks are null. One that is taken stays loaded
/// until the process ends. Runs by itself when the program starts.
TESSERA_CORE_EXPORT void MITAB_load();
/// Whether MITAB_LoadErr is 0.
[[nodiscard]] TESSERA_CORE_EXPORT bool MITAB_LibOK();

using mitab_handle = void *;    ///< A file that is open.
using mitab_feature = void *;   ///< An object of a file.
using mitab_projinfo = void *;  ///< A projection record.

// Kinds of objects.
inline constexpr int TABFC_NoGeom = 0;
inline constexpr int TABFC_Point = 1;
inline constexpr int TABFC_FontPoint = 2;
inline constexpr int TABFC_CustomPoint = 3;
inline constexpr int TABFC_Text = 4;
inline constexpr int TABFC_Polyline = 5;
inline constexpr int TABFC_Arc = 6;
inline constexpr int TABFC_Region = 7;
inline constexpr int TABFC_Rectangle = 8;
inline constexpr int TABFC_Ellipse = 9;
inline constexpr int TABFC_MultiPoint = 10;
inline constexpr int TABFC_Collection = 11;
// Types of columns.
inline constexpr int TABFT_Char = 1;
inline constexpr int TABFT_Integer = 2;
inline constexpr int TABFT_SmallInt = 3;
inline constexpr int TABFT_Decimal = 4;
inline constexpr int TABFT_Float = 5;
inline constexpr int TABFT_Date = 6;
inline constexpr int TABFT_Logical = 7;
inline constexpr int TABFT_Time = 8;
inline constexpr int TABFT_DateTime = 9;
// Justification, spacing and label line of texts.
inline constexpr int TABTJ_Left = 0;
inline constexpr int TABTJ_Center = 1;
inline constexpr int TABTJ_Right = 2;
inline constexpr int TABTS_Single = 0;
inline constexpr int TABTS_1_5 = 1;
inline constexpr int TABTS_Double = 2;
inline constexpr int TABTL_NoLine = 0;
inline constexpr int TABTL_Simple = 1;
inline constexpr int TABTL_Arrow = 2;

// The entry points, in the order in which they are bound. Colours are 0xRRGGBB, angles degrees counter-clockwise, sizes
// of symbols points, coordinates map units; a text that is answered belongs to the library.
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_getlibversion)();
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_add_field)(mitab_handle handle, const char *fieldName,
                                                               int fieldType, int width, int precision, int indexed,
                                                               int unique);
TESSERA_MITAB_ENTRY void(TESSERA_MITAB_CALL *mitab_c_close)(mitab_handle handle);
TESSERA_MITAB_ENTRY mitab_handle(TESSERA_MITAB_CALL *mitab_c_create)(const char *fileName, const char *mifOrTab,
                                                                     const char *coordSys, double north, double south,
                                                                     double east, double west);
TESSERA_MITAB_ENTRY mitab_feature(TESSERA_MITAB_CALL *mitab_c_create_feature)(mitab_handle handle, int featureType);
TESSERA_MITAB_ENTRY void(TESSERA_MITAB_CALL *mitab_c_destroy_feature)(mitab_feature feature);
TESSERA_MITAB_ENTRY const char *(TESSERA_MITAB_CALL *mitab_c_getlasterrormsg)();
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_getlasterrormsg_vb)(char *message, int size);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_getlasterrorno)();
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_get_brush_bgcolor)(mitab_feature feature);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_get_brush_fgcolor)(mitab_feature feature);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_get_brush_pattern)(mitab_feature feature);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_get_brush_transparent)(mitab_feature feature);
TESSERA_MITAB_ENTRY const char *(TESSERA_MITAB_CALL *mitab_c_get_extended_mif_coordsys)(mitab_handle handle);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_get_feature_count)(mitab_handle handle);
TESSERA_MITAB_ENTRY double(TESSERA_MITAB_CALL *mitab_c_get_field_as_double)(mitab_feature feature, int field);
TESSERA_MITAB_ENTRY const char *(TESSERA_MITAB_CALL *mitab_c_get_field_as_string)(mitab_feature feature, int field);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_get_field_as_string_vb)(mitab_feature feature, int field,
                                                                            char *value, int size);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_get_field_count)(mitab_handle handle);
TESSERA_MITAB_ENTRY const char *(TESSERA_MITAB_CALL *mitab_c_get_field_name)(mitab_handle handle, int field);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_get_field_name_vb)(mitab_handle handle, int field, char *name,
                                                                       int size);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_get_field_precision)(mitab_handle handle, int field);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_get_field_type)(mitab_handle handle, int field);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_get_field_width)(mitab_handle handle, int field);
TESSERA_MITAB_ENTRY const char *(TESSERA_MITAB_CALL *mitab_c_get_font)(mitab_feature feature);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_get_font_vb)(mitab_feature feature, char *font, int size);
TESSERA_MITAB_ENTRY const char *(TESSERA_MITAB_CALL *mitab_c_get_mif_coordsys)(mitab_handle handle);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_get_mif_coordsys_vb)(mitab_handle handle, char *coordsys, int size);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_get_parts)(mitab_feature feature);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_get_pen_color)(mitab_feature feature);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_get_pen_pattern)(mitab_feature feature);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_get_pen_width)(mitab_feature feature);
TESSERA_MITAB_ENTRY mitab_projinfo(TESSERA_MITAB_CALL *mitab_c_get_projinfo)(mitab_handle handle);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_get_symbol_color)(mitab_feature feature);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_get_symbol_no)(mitab_feature feature);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_get_symbol_size)(mitab_feature feature);
TESSERA_MITAB_ENTRY const char *(TESSERA_MITAB_CALL *mitab_c_get_text)(mitab_feature feature);
TESSERA_MITAB_ENTRY double(TESSERA_MITAB_CALL *mitab_c_get_text_angle)(mitab_feature feature);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_get_text_bgcolor)(mitab_feature feature);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_get_text_fgcolor)(mitab_feature feature);
TESSERA_MITAB_ENTRY double(TESSERA_MITAB_CALL *mitab_c_get_text_height)(mitab_feature feature);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_get_text_justification)(mitab_feature feature);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_get_text_linetype)(mitab_feature feature);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_get_text_spacing)(mitab_feature feature);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_get_text_vb)(mitab_feature feature, char *text, int size);
TESSERA_MITAB_ENTRY double(TESSERA_MITAB_CALL *mitab_c_get_text_width)(mitab_feature feature);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_get_type)(mitab_feature feature);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_get_vertex_count)(mitab_feature feature, int part);
TESSERA_MITAB_ENTRY double(TESSERA_MITAB_CALL *mitab_c_get_vertex_x)(mitab_feature feature, int part, int vertex);
TESSERA_MITAB_ENTRY double(TESSERA_MITAB_CALL *mitab_c_get_vertex_y)(mitab_feature feature, int part, int vertex);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_is_interior_ring)(mitab_feature feature, int ring);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_load_coordsys_table)(const char *fileName);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_next_feature_id)(mitab_handle handle, int lastFeatureId);
TESSERA_MITAB_ENTRY mitab_handle(TESSERA_MITAB_CALL *mitab_c_open)(const char *fileName);
TESSERA_MITAB_ENTRY mitab_feature(TESSERA_MITAB_CALL *mitab_c_read_feature)(mitab_handle handle, int featureId);
TESSERA_MITAB_ENTRY void(TESSERA_MITAB_CALL *mitab_c_set_arc)(mitab_feature feature, double centerX, double centerY,
                                                              double xRadius, double yRadius, double startAngle,
                                                              double endAngle);
TESSERA_MITAB_ENTRY void(TESSERA_MITAB_CALL *mitab_c_set_brush)(mitab_feature feature, int fgColor, int bgColor,
                                                                int pattern, int transparent);
TESSERA_MITAB_ENTRY void(TESSERA_MITAB_CALL *mitab_c_set_field)(mitab_feature feature, int fieldIndex,
                                                                const char *value);
TESSERA_MITAB_ENTRY void(TESSERA_MITAB_CALL *mitab_c_set_font)(mitab_feature feature, const char *fontName);
TESSERA_MITAB_ENTRY void(TESSERA_MITAB_CALL *mitab_c_set_pen)(mitab_feature feature, int width, int pattern, int color);
TESSERA_MITAB_ENTRY void(TESSERA_MITAB_CALL *mitab_c_set_points)(mitab_feature feature, int part, int vertexCount,
                                                                 double *x, double *y);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_set_projinfo)(mitab_handle handle, mitab_projinfo info);
TESSERA_MITAB_ENTRY void(TESSERA_MITAB_CALL *mitab_c_set_symbol)(mitab_feature feature, int symbolNo, int symbolSize,
                                                                 int symbolColor);
TESSERA_MITAB_ENTRY void(TESSERA_MITAB_CALL *mitab_c_set_text)(mitab_feature feature, const char *text);
TESSERA_MITAB_ENTRY void(TESSERA_MITAB_CALL *mitab_c_set_text_display)(mitab_feature feature, double angle,
                                                                       double height, double width, int fgColor,
                                                                       int bgColor, int justification, int spacing,
                                                                       int linetype);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_write_feature)(mitab_handle handle, mitab_feature feature);
TESSERA_MITAB_ENTRY mitab_feature(TESSERA_MITAB_CALL *mitab_c_get_collection_region_ref)(mitab_feature feature);
TESSERA_MITAB_ENTRY mitab_feature(TESSERA_MITAB_CALL *mitab_c_get_collection_polyline_ref)(mitab_feature feature);
TESSERA_MITAB_ENTRY mitab_feature(TESSERA_MITAB_CALL *mitab_c_get_collection_multipoint_ref)(mitab_feature feature);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_set_collection_region)(mitab_feature feature, mitab_feature region,
                                                                           int makeCopy);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_set_collection_polyline)(mitab_feature feature,
                                                                             mitab_feature polyline, int makeCopy);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_set_collection_multipoint)(mitab_feature feature,
                                                                               mitab_feature multipoint, int makeCopy);
TESSERA_MITAB_ENTRY void(TESSERA_MITAB_CALL *mitab_c_get_projection_info)(mitab_projinfo info, int *projectionId,
                                                                          int *ellipsoidId, int *unitsId,
                                                                          double *parameters);
TESSERA_MITAB_ENTRY void(TESSERA_MITAB_CALL *mitab_c_set_projection_info)(mitab_projinfo info, int projectionId,
                                                                          int ellipsoidId, int unitsId,
                                                                          double *parameters);
TESSERA_MITAB_ENTRY void(TESSERA_MITAB_CALL *mitab_c_get_datum_info)(mitab_projinfo info, double *shiftX,
                                                                     double *shiftY, double *shiftZ,
                                                                     double *parameters);
TESSERA_MITAB_ENTRY void(TESSERA_MITAB_CALL *mitab_c_set_datum_info)(mitab_projinfo info, double shiftX, double shiftY,
                                                                     double shiftZ, double *parameters);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_get_affine_params)(mitab_projinfo info, int *units,
                                                                       double *parameters);
TESSERA_MITAB_ENTRY void(TESSERA_MITAB_CALL *mitab_c_set_affine_params)(mitab_projinfo info, int units,
                                                                        double *parameters);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_is_field_indexed)(mitab_handle handle, int field);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_is_field_unique)(mitab_handle handle, int field);
TESSERA_MITAB_ENTRY int(TESSERA_MITAB_CALL *mitab_c_set_quick_spatial_index_mode)(mitab_handle handle);
}  // namespace tessera

#undef TESSERA_MITAB_ENTRY

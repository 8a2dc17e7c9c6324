#include <Utils/Public/MIME.h>

#include <algorithm>
#include <cstddef>
#include <iterator>

#include <Utils/Public/CaseInsensitiveLess.h>

namespace QV {
namespace {

struct MIMETypeRow
{
    const char* mimeType;
    const char* extension;
};

// Sorted by type. Where files of one kind go by several types, all have the same extension here, and the type
// of that extension in the table below is the one that we write.
const MIMETypeRow MIMETypes[] = {
    {"application/gzip",                                                          "gz"   },
    {"application/json",                                                          "json" },
    {"application/msword",                                                        "doc"  },
    {"application/octet-stream",                                                  "bin"  },
    {"application/pdf",                                                           "pdf"  },
    {"application/postscript",                                                    "eps"  },
    {"application/rtf",                                                           "rtf"  },
    {"application/vnd.ms-excel",                                                  "xls"  },
    {"application/vnd.ms-excel.addin.macroEnabled.12",                            "xlam" },
    {"application/vnd.ms-excel.sheet.binary.macroEnabled.12",                     "xlsb" },
    {"application/vnd.ms-excel.sheet.macroEnabled.12",                            "xlsm" },
    {"application/vnd.ms-excel.template.macroEnabled.12",                         "xltm" },
    {"application/vnd.ms-powerpoint",                                             "ppt"  },
    {"application/vnd.ms-powerpoint.presentation.macroEnabled.12",                "pptm" },
    {"application/vnd.ms-powerpoint.slideshow.macroEnabled.12",                   "ppsm" },
    {"application/vnd.ms-powerpoint.template.macroEnabled.12",                    "potm" },
    {"application/vnd.ms-word.document.macroEnabled.12",                          "docm" },
    {"application/vnd.ms-word.template.macroEnabled.12",                          "dotm" },
    {"application/vnd.oasis.opendocument.graphics",                               "odg"  },
    {"application/vnd.oasis.opendocument.presentation",                           "odp"  },
    {"application/vnd.oasis.opendocument.presentation-template",                  "otp"  },
    {"application/vnd.oasis.opendocument.spreadsheet",                            "ods"  },
    {"application/vnd.oasis.opendocument.spreadsheet-template",                   "ots"  },
    {"application/vnd.oasis.opendocument.text",                                   "odt"  },
    {"application/vnd.oasis.opendocument.text-template",                          "ott"  },
    {"application/vnd.openxmlformats-officedocument.presentationml.presentation", "pptx" },
    {"application/vnd.openxmlformats-officedocument.presentationml.slideshow",    "ppsx" },
    {"application/vnd.openxmlformats-officedocument.presentationml.template",     "potx" },
    {"application/vnd.openxmlformats-officedocument.spreadsheetml.sheet",         "xlsx" },
    {"application/vnd.openxmlformats-officedocument.spreadsheetml.template",      "xltx" },
    {"application/vnd.openxmlformats-officedocument.wordprocessingml.document",   "docx" },
    {"application/vnd.openxmlformats-officedocument.wordprocessingml.template",   "dotx" },
    {"application/x-gzip",                                                        "gz"   },
    {"application/xhtml+xml",                                                     "xhtml"},
    {"application/xml",                                                           "xml"  },
    {"application/zip",                                                           "zip"  },
    {"audio/aac",                                                                 "aac"  },
    {"audio/aiff",                                                                "aiff" },
    {"audio/amr",                                                                 "amr"  },
    {"audio/basic",                                                               "au"   },
    {"audio/flac",                                                                "flac" },
    {"audio/midi",                                                                "mid"  },
    {"audio/mp3",                                                                 "mp3"  },
    {"audio/mp4",                                                                 "m4a"  },
    {"audio/mpeg",                                                                "mp3"  },
    {"audio/ogg",                                                                 "ogg"  },
    {"audio/wav",                                                                 "wav"  },
    {"audio/wave",                                                                "wav"  },
    {"audio/x-aac",                                                               "aac"  },
    {"audio/x-aiff",                                                              "aiff" },
    {"audio/x-flac",                                                              "flac" },
    {"audio/x-m4a",                                                               "m4a"  },
    {"audio/x-midi",                                                              "mid"  },
    {"audio/x-ms-wma",                                                            "wma"  },
    {"audio/x-wav",                                                               "wav"  },
    {"image/avif",                                                                "avif" },
    {"image/bmp",                                                                 "bmp"  },
    {"image/emf",                                                                 "emf"  },
    {"image/gif",                                                                 "gif"  },
    {"image/heic",                                                                "heic" },
    {"image/heif",                                                                "heif" },
    {"image/jpeg",                                                                "jpg"  },
    {"image/jpg",                                                                 "jpg"  },
    {"image/jxr",                                                                 "wdp"  },
    {"image/pct",                                                                 "pct"  },
    {"image/pjpeg",                                                               "jpg"  },
    {"image/png",                                                                 "png"  },
    {"image/svg",                                                                 "svg"  },
    {"image/svg+xml",                                                             "svg"  },
    {"image/tiff",                                                                "tiff" },
    {"image/vnd.adobe.photoshop",                                                 "psd"  },
    {"image/vnd.microsoft.icon",                                                  "ico"  },
    {"image/vnd.ms-photo",                                                        "wdp"  },
    {"image/webp",                                                                "webp" },
    {"image/wmf",                                                                 "wmf"  },
    {"image/x-bmp",                                                               "bmp"  },
    {"image/x-emf",                                                               "emf"  },
    {"image/x-emz",                                                               "emz"  },
    {"image/x-icon",                                                              "ico"  },
    {"image/x-ms-bmp",                                                            "bmp"  },
    {"image/x-pcx",                                                               "pcx"  },
    {"image/x-pict",                                                              "pct"  },
    {"image/x-png",                                                               "png"  },
    {"image/x-wmf",                                                               "wmf"  },
    {"image/x-wmz",                                                               "wmz"  },
    {"text/css",                                                                  "css"  },
    {"text/csv",                                                                  "csv"  },
    {"text/html",                                                                 "html" },
    {"text/plain",                                                                "txt"  },
    {"text/rtf",                                                                  "rtf"  },
    {"text/xml",                                                                  "xml"  },
    {"video/3gpp",                                                                "3gp"  },
    {"video/avi",                                                                 "avi"  },
    {"video/mp4",                                                                 "mp4"  },
    {"video/mpeg",                                                                "mpg"  },
    {"video/msvideo",                                                             "avi"  },
    {"video/ogg",                                                                 "ogv"  },
    {"video/quicktime",                                                           "mov"  },
    {"video/webm",                                                                "webm" },
    {"video/x-flv",                                                               "flv"  },
    {"video/x-m4v",                                                               "m4v"  },
    {"video/x-matroska",                                                          "mkv"  },
    {"video/x-ms-asf",                                                            "asf"  },
    {"video/x-ms-wmv",                                                            "wmv"  },
    {"video/x-msvideo",                                                           "avi"  },
};

struct ExtensionRow
{
    const char* extension;
    const char* mimeType;
};

// Sorted by extension.
const ExtensionRow Extensions[] = {
    {"3gp",   "video/3gpp"                                                               },
    {"3gpp",  "video/3gpp"                                                               },
    {"aac",   "audio/aac"                                                                },
    {"adts",  "audio/aac"                                                                },
    {"aif",   "audio/aiff"                                                               },
    {"aifc",  "audio/aiff"                                                               },
    {"aiff",  "audio/aiff"                                                               },
    {"amr",   "audio/amr"                                                                },
    {"asf",   "video/x-ms-asf"                                                           },
    {"au",    "audio/basic"                                                              },
    {"avi",   "video/x-msvideo"                                                          },
    {"avif",  "image/avif"                                                               },
    {"bin",   "application/octet-stream"                                                 },
    {"bmp",   "image/bmp"                                                                },
    {"css",   "text/css"                                                                 },
    {"csv",   "text/csv"                                                                 },
    {"dib",   "image/bmp"                                                                },
    {"doc",   "application/msword"                                                       },
    {"docm",  "application/vnd.ms-word.document.macroEnabled.12"                         },
    {"docx",  "application/vnd.openxmlformats-officedocument.wordprocessingml.document"  },
    {"dot",   "application/msword"                                                       },
    {"dotm",  "application/vnd.ms-word.template.macroEnabled.12"                         },
    {"dotx",  "application/vnd.openxmlformats-officedocument.wordprocessingml.template"  },
    {"emf",   "image/x-emf"                                                              },
    {"emz",   "image/x-emz"                                                              },
    {"eps",   "application/postscript"                                                   },
    {"flac",  "audio/flac"                                                               },
    {"flv",   "video/x-flv"                                                              },
    {"gif",   "image/gif"                                                                },
    {"gz",    "application/gzip"                                                         },
    {"hdp",   "image/vnd.ms-photo"                                                       },
    {"heic",  "image/heic"                                                               },
    {"heif",  "image/heif"                                                               },
    {"hif",   "image/heif"                                                               },
    {"htm",   "text/html"                                                                },
    {"html",  "text/html"                                                                },
    {"ico",   "image/vnd.microsoft.icon"                                                 },
    {"jfif",  "image/jpeg"                                                               },
    {"jpe",   "image/jpeg"                                                               },
    {"jpeg",  "image/jpeg"                                                               },
    {"jpg",   "image/jpeg"                                                               },
    {"json",  "application/json"                                                         },
    {"jxr",   "image/vnd.ms-photo"                                                       },
    {"m1v",   "video/mpeg"                                                               },
    {"m4a",   "audio/mp4"                                                                },
    {"m4b",   "audio/mp4"                                                                },
    {"m4v",   "video/x-m4v"                                                              },
    {"mid",   "audio/midi"                                                               },
    {"midi",  "audio/midi"                                                               },
    {"mkv",   "video/x-matroska"                                                         },
    {"mov",   "video/quicktime"                                                          },
    {"mp3",   "audio/mpeg"                                                               },
    {"mp4",   "video/mp4"                                                                },
    {"mpe",   "video/mpeg"                                                               },
    {"mpeg",  "video/mpeg"                                                               },
    {"mpg",   "video/mpeg"                                                               },
    {"odg",   "application/vnd.oasis.opendocument.graphics"                              },
    {"odp",   "application/vnd.oasis.opendocument.presentation"                          },
    {"ods",   "application/vnd.oasis.opendocument.spreadsheet"                           },
    {"odt",   "application/vnd.oasis.opendocument.text"                                  },
    {"oga",   "audio/ogg"                                                                },
    {"ogg",   "audio/ogg"                                                                },
    {"ogv",   "video/ogg"                                                                },
    {"otp",   "application/vnd.oasis.opendocument.presentation-template"                 },
    {"ots",   "application/vnd.oasis.opendocument.spreadsheet-template"                  },
    {"ott",   "application/vnd.oasis.opendocument.text-template"                         },
    {"pct",   "image/x-pict"                                                             },
    {"pcx",   "image/x-pcx"                                                              },
    {"pdf",   "application/pdf"                                                          },
    {"pict",  "image/x-pict"                                                             },
    {"png",   "image/png"                                                                },
    {"pot",   "application/vnd.ms-powerpoint"                                            },
    {"potm",  "application/vnd.ms-powerpoint.template.macroEnabled.12"                   },
    {"potx",  "application/vnd.openxmlformats-officedocument.presentationml.template"    },
    {"pps",   "application/vnd.ms-powerpoint"                                            },
    {"ppsm",  "application/vnd.ms-powerpoint.slideshow.macroEnabled.12"                  },
    {"ppsx",  "application/vnd.openxmlformats-officedocument.presentationml.slideshow"   },
    {"ppt",   "application/vnd.ms-powerpoint"                                            },
    {"pptm",  "application/vnd.ms-powerpoint.presentation.macroEnabled.12"               },
    {"pptx",  "application/vnd.openxmlformats-officedocument.presentationml.presentation"},
    {"ps",    "application/postscript"                                                   },
    {"psd",   "image/vnd.adobe.photoshop"                                                },
    {"qt",    "video/quicktime"                                                          },
    {"rtf",   "application/rtf"                                                          },
    {"snd",   "audio/basic"                                                              },
    {"svg",   "image/svg+xml"                                                            },
    {"tif",   "image/tiff"                                                               },
    {"tiff",  "image/tiff"                                                               },
    {"txt",   "text/plain"                                                               },
    {"wav",   "audio/wav"                                                                },
    {"wdp",   "image/vnd.ms-photo"                                                       },
    {"webm",  "video/webm"                                                               },
    {"webp",  "image/webp"                                                               },
    {"wma",   "audio/x-ms-wma"                                                           },
    {"wmf",   "image/x-wmf"                                                              },
    {"wmv",   "video/x-ms-wmv"                                                           },
    {"wmz",   "image/x-wmz"                                                              },
    {"xhtml", "application/xhtml+xml"                                                    },
    {"xla",   "application/vnd.ms-excel"                                                 },
    {"xlam",  "application/vnd.ms-excel.addin.macroEnabled.12"                           },
    {"xls",   "application/vnd.ms-excel"                                                 },
    {"xlsb",  "application/vnd.ms-excel.sheet.binary.macroEnabled.12"                    },
    {"xlsm",  "application/vnd.ms-excel.sheet.macroEnabled.12"                           },
    {"xlsx",  "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet"        },
    {"xlt",   "application/vnd.ms-excel"                                                 },
    {"xltm",  "application/vnd.ms-excel.template.macroEnabled.12"                        },
    {"xltx",  "application/vnd.openxmlformats-officedocument.spreadsheetml.template"     },
    {"xml",   "application/xml"                                                          },
    {"zip",   "application/zip"                                                          },
};

// The value beside a key, in a table sorted by CaseInsensitiveLess.
template <typename Row, std::size_t Size>
boost::optional<std::string> findIn(
    const Row (&rows)[Size], const char* Row::*key, const char* Row::*value, const std::string& wanted)
{
    const CaseInsensitiveLess isLess{};
    const Row* const row = std::lower_bound(std::begin(rows), std::end(rows), wanted,
        [&](const Row& candidate, const std::string& text) { return isLess(candidate.*key, text); });
    if (row == std::end(rows) || isLess(wanted, row->*key))
        return boost::none;
    return std::string(row->*value);
}

} // namespace

boost::optional<std::string> getFileExtensionByMIMEType(const std::string& mimeType)
{
    return findIn(MIMETypes, &MIMETypeRow::mimeType, &MIMETypeRow::extension, mimeType);
}

boost::optional<std::string> getMIMETypeByExtension(const std::string& extension)
{
    return findIn(Extensions, &ExtensionRow::extension, &ExtensionRow::mimeType, extension);
}

} // namespace QV

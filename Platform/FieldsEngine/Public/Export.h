#pragma once

#define FIELDSENGINE_API __attribute__((visibility("default")))

#pragma once

#include <gtk/gtk.h>

#include "Platform/WindowContent.h"

namespace Linux {

/// A row with the field's label and, beside it, the number to type or to change step by step.
GtkWidget* makeNumberRow(const Platform::NumberField& field);

/// A row with the choice's label and, beside it, a list of its options that drops down.
GtkWidget* makeChoiceRow(const Platform::Choice& choice);

}  // namespace Linux

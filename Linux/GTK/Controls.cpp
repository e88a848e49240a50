#include "Linux/GTK/Controls.h"

#include <algorithm>

namespace Linux {

namespace {

constexpr int spacing = 24;

/// Calls `handler`, a function of the widget and of its own copy of `onChange`, at each signal.
template <typename Value>
void connectChange(GtkWidget* widget, const char* signal, GCallback handler,
                   const std::function<void(Value)>& onChange) {
  const auto release = [](gpointer function, GClosure*) { delete static_cast<std::function<void(Value)>*>(function); };
  if (onChange)
    g_signal_connect_data(widget, signal, handler, new std::function<void(Value)>(onChange), release, GConnectFlags{});
}

void numberChanged(GtkSpinButton* button, gpointer onChange) {
  (*static_cast<std::function<void(int)>*>(onChange))(gtk_spin_button_get_value_as_int(button));
}

void selectionChanged(GtkDropDown* list, GParamSpec* /*property*/, gpointer onChange) {
  if (const guint selected = gtk_drop_down_get_selected(list); selected != GTK_INVALID_LIST_POSITION)
    (*static_cast<std::function<void(std::size_t)>*>(onChange))(selected);
}

/// The label and the control in a row. Screen readers read out the one with the other.
GtkWidget* makeRow(const std::string& text, GtkWidget* control) {
  GtkWidget* label = gtk_label_new(text.c_str());
  gtk_label_set_xalign(GTK_LABEL(label), 0);
  gtk_label_set_wrap(GTK_LABEL(label), TRUE);
  gtk_widget_set_hexpand(label, TRUE);
  gtk_accessible_update_relation(GTK_ACCESSIBLE(control), GTK_ACCESSIBLE_RELATION_LABELLED_BY, label, nullptr, -1);
  GtkWidget* row = gtk_box_new(GTK_ORIENTATION_HORIZONTAL, spacing);
  gtk_box_append(GTK_BOX(row), label);
  gtk_box_append(GTK_BOX(row), control);
  return row;
}

}  // namespace

GtkWidget* makeNumberRow(const Platform::NumberField& field) {
  constexpr double step = 1;
  // A range of one number is none to the toolkit's constructor.
  GtkAdjustment* range = gtk_adjustment_new(field.nearest(field.value), field.minimum,
                                            std::max(field.minimum, field.maximum), step, 10 * step, 0);
  GtkWidget* button = gtk_spin_button_new(range, step, 0);
  gtk_spin_button_set_numeric(GTK_SPIN_BUTTON(button), TRUE);
  gtk_widget_set_valign(button, GTK_ALIGN_CENTER);
  connectChange(button, "value-changed", G_CALLBACK(&numberChanged), field.onChange);
  return makeRow(field.label, button);
}

GtkWidget* makeChoiceRow(const Platform::Choice& choice) {
  GtkStringList* options = gtk_string_list_new(nullptr);
  for (const std::string& option : choice.options)
    gtk_string_list_append(options, option.c_str());
  GtkWidget* list = gtk_drop_down_new(G_LIST_MODEL(options), nullptr);
  gtk_drop_down_set_selected(GTK_DROP_DOWN(list), static_cast<guint>(choice.existing(choice.selected)));
  gtk_widget_set_valign(list, GTK_ALIGN_CENTER);
  connectChange(list, "notify::selected", G_CALLBACK(&selectionChanged), choice.onChange);
  return makeRow(choice.label, list);
}

}  // namespace Linux

#include "Linux/GTK/Content.h"

#include <algorithm>

namespace Linux::GTK {

namespace {

constexpr int margin = 24;
constexpr int spacing = 12;
constexpr int rowSpacing = 24;
constexpr int pictureSize = 96;
constexpr int narrowest = 320;
constexpr int widestLine = 50;

GtkWidget* makeLabel(const std::string& text) {
  GtkWidget* widget = gtk_label_new(text.c_str());
  GtkLabel* label = GTK_LABEL(widget);
  gtk_label_set_selectable(label, TRUE);
  gtk_label_set_wrap(label, TRUE);
  gtk_label_set_max_width_chars(label, widestLine);
  gtk_label_set_justify(label, GTK_JUSTIFY_CENTER);
  return widget;
}

/// Connects the signal to `handler`, whose last argument is a copy of `onChange`.
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

/// Makes a row of a label and its control. Screen readers read out both together.
GtkWidget* makeRow(const std::string& text, GtkWidget* control) {
  GtkWidget* label = gtk_label_new(text.c_str());
  gtk_label_set_xalign(GTK_LABEL(label), 0);
  gtk_label_set_wrap(GTK_LABEL(label), TRUE);
  gtk_widget_set_hexpand(label, TRUE);
  gtk_accessible_update_relation(GTK_ACCESSIBLE(control), GTK_ACCESSIBLE_RELATION_LABELLED_BY, label, nullptr, -1);
  GtkWidget* row = gtk_box_new(GTK_ORIENTATION_HORIZONTAL, rowSpacing);
  gtk_box_append(GTK_BOX(row), label);
  gtk_box_append(GTK_BOX(row), control);
  return row;
}

GtkWidget* makeNumberRow(const Platform::NumberField& field) {
  constexpr double step = 1;
  // gtk_spin_button_new_with_range() refuses a range of one number.
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

/// Makes the widget of an element.
struct MakeWidget {
  GtkWidget* operator()(const Platform::Picture& picture) const {
    GtkWidget* image = gtk_image_new_from_file(picture.file.c_str());
    gtk_image_set_pixel_size(GTK_IMAGE(image), pictureSize);
    gtk_accessible_update_property(GTK_ACCESSIBLE(image), GTK_ACCESSIBLE_PROPERTY_LABEL, picture.description.c_str(),
                                   -1);
    return image;
  }

  GtkWidget* operator()(const Platform::Heading& heading) const {
    GtkWidget* label = makeLabel(heading.text);
    gtk_widget_add_css_class(label, "title-3");
    return label;
  }

  GtkWidget* operator()(const Platform::Text& text) const { return makeLabel(text.text); }

  GtkWidget* operator()(const Platform::Link& link) const {
    return gtk_link_button_new_with_label(link.url.absoluteString().c_str(), link.text.c_str());
  }

  GtkWidget* operator()(const Platform::NumberField& field) const { return makeNumberRow(field); }
  GtkWidget* operator()(const Platform::Choice& choice) const { return makeChoiceRow(choice); }
};

}  // namespace

GtkWidget* makeContentBox(const Platform::WindowContent& content) {
  GtkWidget* box = gtk_box_new(GTK_ORIENTATION_VERTICAL, spacing);
  gtk_widget_set_size_request(box, narrowest, -1);
  gtk_widget_set_margin_top(box, margin);
  gtk_widget_set_margin_bottom(box, margin);
  gtk_widget_set_margin_start(box, margin);
  gtk_widget_set_margin_end(box, margin);
  for (const Platform::WindowElement& element : content.elements)
    gtk_box_append(GTK_BOX(box), std::visit(MakeWidget(), element));
  return box;
}

}  // namespace Linux::GTK

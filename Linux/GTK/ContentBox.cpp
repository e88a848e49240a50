#include "Linux/GTK/ContentBox.h"

#include "Linux/GTK/Controls.h"

namespace Linux {

namespace {

constexpr int margin = 24;
constexpr int spacing = 12;
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

/// Makes an element's widget.
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

void giveInitialFocus(GtkWindow* window, GtkWidget* box) {
  for (GtkWidget* child = gtk_widget_get_first_child(box); child != nullptr; child = gtk_widget_get_next_sibling(child))
    if (GTK_IS_BOX(child) && gtk_widget_grab_focus(gtk_widget_get_last_child(child)) != FALSE)
      return;
  gtk_widget_set_focusable(box, TRUE);
  gtk_window_set_focus(window, box);
}

void closeOnEscape(GtkWindow* window) {
  GtkEventController* shortcuts = gtk_shortcut_controller_new();
  gtk_shortcut_controller_add_shortcut(GTK_SHORTCUT_CONTROLLER(shortcuts),
                                       gtk_shortcut_new(gtk_keyval_trigger_new(GDK_KEY_Escape, GdkModifierType{}),
                                                        gtk_named_action_new("window.close")));
  gtk_widget_add_controller(GTK_WIDGET(window), shortcuts);
}

}  // namespace Linux

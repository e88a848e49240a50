#include "Tests/Support/Marionette.h"

#include <stdexcept>

#include "Tests/Support/GIOHandles.h"
#include "Tests/Support/Patience.h"

namespace TestSupport {

namespace {

using namespace DesktopSupport;
using nlohmann::json;

/// How long a script may take, which may wait several times. The browser may take longer to answer.
constexpr std::chrono::seconds scriptPatience = 4 * patience;
constexpr std::chrono::seconds answerPatience = 5 * patience;

ObjectHandle<GSocketConnection> connectTo(std::uint16_t port) {
  const ObjectHandle<GSocketClient> client(g_socket_client_new());
  g_socket_client_set_enable_proxy(client.get(), FALSE);
  g_socket_client_set_timeout(client.get(), static_cast<guint>(answerPatience.count()));
  ErrorHandle error;
  ObjectHandle<GSocketConnection> connection(
      g_socket_client_connect_to_host(client.get(), "127.0.0.1", port, nullptr, Out(error)));
  if (!connection)
    throw std::runtime_error(std::string("no browser to control: ") + error->message);
  return connection;
}

}  // namespace

Marionette::Marionette(std::uint16_t port)
    : connection_(connectTo(port)),
      input_(g_data_input_stream_new(g_io_stream_get_input_stream(G_IO_STREAM(connection_.get())))) {
  read();  // the browser's greeting
  command("WebDriver:NewSession", json::object());
  command("WebDriver:SetTimeouts", {{"script", milliseconds(scriptPatience)}});
  command("Marionette:SetContext", {{"value", "chrome"}});
}

json Marionette::run(const std::string& body, const json& arguments) {
  return command("WebDriver:ExecuteScript", {{"script", body}, {"args", arguments}, {"sandbox", "system"}}).at("value");
}

void Marionette::quit() {
  command("Marionette:Quit", {{"flags", {"eForceQuit"}}});
}

json Marionette::command(const std::string& name, const json& parameters) {
  constexpr int isCommand = 0;
  write(json::array({isCommand, ++lastCommand_, name, parameters}).dump());
  const json answer = read();
  if (const json& error = answer.at(2); !error.is_null())
    throw std::runtime_error(name + ": " + error.at("message").get<std::string>());
  return answer.at(3);
}

// A message is its length, a colon and JSON.
void Marionette::write(const std::string& text) {
  const std::string message = std::to_string(text.size()) + ':' + text;
  g_output_stream_write_all(g_io_stream_get_output_stream(G_IO_STREAM(connection_.get())), message.data(),
                            message.size(), nullptr, nullptr, nullptr);
}

json Marionette::read() {
  const CharsHandle length(g_data_input_stream_read_upto(input_.get(), ":", 1, nullptr, nullptr, nullptr));
  if (!length)
    throw std::runtime_error("the browser is gone, or does not answer");
  g_data_input_stream_read_byte(input_.get(), nullptr, nullptr);
  std::string text(std::stoul(length.get()), '\0');
  gsize count = 0;
  g_input_stream_read_all(G_INPUT_STREAM(input_.get()), text.data(), text.size(), &count, nullptr, nullptr);
  text.resize(count);
  return json::parse(text);
}

}  // namespace TestSupport

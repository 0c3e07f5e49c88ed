#pragma once
// formRoom: the room editor window (placeholder until the editor lands).

#include <QWidget>

#include "shell/editor_host.h"

namespace marl {

class FormRoom : public QWidget, public ZoneEditor {
    Q_OBJECT
public:
    explicit FormRoom(EditorHost& host);
    QWidget* window() override { return this; }
    void newZone(std::int32_t zone) override;
    bool openZone(std::int32_t zone, QString& error) override;

private:
    EditorHost& host_;
};

} // namespace marl

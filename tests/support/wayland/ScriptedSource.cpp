#include "support/wayland/ScriptedSource.h"

#include <utility>

#include <unistd.h>

namespace driftbox {

ScriptedSource::ScriptedSource() = default;
ScriptedSource::~ScriptedSource() = default;

ScriptedSource::Answer ScriptedSource::bytes(const QByteArray& content)
{
    return [content](const FileDescriptor& pipe) {
        if (write(pipe.get(), content.constData(), static_cast<std::size_t>(content.size())) !=
            content.size())
            qFatal("The content does not fit into a pipe");
    };
}

ScriptedSource::Answer ScriptedSource::silence()
{
    return [this](FileDescriptor pipe) { pipes.push_back(std::move(pipe)); };
}

void ScriptedSource::copy(const std::map<QByteArray, Answer>& answers)
{
    m_answers = answers;
    QByteArrayList types;
    for (const auto& [type, answer] : answers)
        types.append(type);
    m_device->offer(types);
}

bool ScriptedSource::hasBeenAskedFor(const QByteArray& type) const
{
    return m_asked.contains(type);
}

void ScriptedSource::dataRequested(const QByteArray& type, FileDescriptor pipe)
{
    m_asked.append(type);
    if (const auto answer = m_answers.find(type); answer != m_answers.end())
        answer->second(std::move(pipe));
}

void ScriptedSource::selectionChanged(std::unique_ptr<DataOffer>)
{
}
void ScriptedSource::primarySelectionChanged(std::unique_ptr<DataOffer>)
{
}
void ScriptedSource::offerTaken()
{
}

} // namespace driftbox

// SPDX-License-Identifier: GPL-3.0-or-later
// The compiled half of the Python module: parts as arrays, and sub-commands on them. What users call is
// in orbe/__init__.py.
#include "python/CommandThread.h"
#include "python/Commands.h"
#include "python/PartArrays.h"

#include <optional>
#include <pybind11/functional.h>
#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>
#include <stdexcept>

namespace py = pybind11;
using namespace pybind11::literals;

namespace {

/// How long Python's signals may wait.
constexpr std::chrono::milliseconds turn{20};

/// Lets the interpreter handle its signals. Throws what a handler raises, as KeyboardInterrupt.
void handleSignals()
{
    if (PyErr_CheckSignals() != 0)
        throw py::error_already_set();
}

/// Waits for a job without the interpreter's lock. Where Python raises something meanwhile, the job is
/// cancelled and left to end by itself.
void await(CommandJob& job, py::object const& progress)
{
    try {
        for (bool isFinished = false; !isFinished;) {
            std::vector<CommandJob::Step> steps;
            {
                py::gil_scoped_release const release;
                isFinished = job.waitFor(turn, steps);
            }
            handleSignals();
            if (!progress.is_none())
                for (CommandJob::Step const& step : steps)
                    progress(step.percent, step.title);
        }
    } catch (...) {
        job.cancel();
        throw;
    }
}

/// Numbers of a shape of n x 3. Integers that are none of these types, and other floats, are converted.
ArrayRows rowsOf(py::array& array, char const* what, bool areFaces)
{
    if (array.ndim() != 2 || array.shape(1) != 3)
        throw py::value_error(std::string(what) + " are an array of n x 3.");
    ArrayRows rows;
    if (!areFaces) {
        if (!py::isinstance<py::array_t<float>>(array))
            array = py::array_t<float>::ensure(array);
        rows.type = ArrayRows::Type::Float32;
    } else if (py::isinstance<py::array_t<std::int32_t>>(array)) {
        rows.type = ArrayRows::Type::Int32;
    } else if (py::isinstance<py::array_t<std::uint32_t>>(array)) {
        rows.type = ArrayRows::Type::UInt32;
    } else if (py::isinstance<py::array_t<std::uint64_t>>(array)) {
        rows.type = ArrayRows::Type::UInt64;
    } else {
        if (array.dtype().kind() != 'i' && array.dtype().kind() != 'u')
            throw py::type_error("Faces are whole numbers of vertices.");
        if (!py::isinstance<py::array_t<std::int64_t>>(array))
            array = py::array_t<std::int64_t>::ensure(array);
        rows.type = ArrayRows::Type::Int64;
    }
    if (!array)
        throw py::error_already_set();
    rows.data = static_cast<char const*>(array.data());
    rows.count = std::size_t(array.shape(0));
    rows.rowStride = array.strides(0);
    rows.columnStride = array.strides(1);
    return rows;
}

/// A part with the arrays that have been asked for.
struct Part
{
    StoredPart stored;
    std::optional<py::array> vertices;
    std::optional<py::array> faces;
};

Part makePart(py::array vertices, py::array faces, std::string name)
{
    ArrayRows const vertexRows = rowsOf(vertices, "Vertices", false);
    ArrayRows const faceRows = rowsOf(faces, "Faces", true);
    py::gil_scoped_release const release;
    std::shared_ptr<MeshKernel const> kernel = partOfArrays(vertexRows, faceRows, [] {
        py::gil_scoped_acquire const acquire;
        handleSignals();
    });
    return {{std::move(name), std::move(kernel), {}}, {}, {}};
}

MeshKernel const& kernelOf(Part const& part)
{
    if (!part.stored.kernel)
        throw std::runtime_error(
            "The piece was cut while its part was read, and is in its file alone: " +
            part.stored.file);
    return *part.stored.kernel;
}

template <typename Number, typename Fill>
py::array arrayOf(std::size_t rows, Fill const& fill)
{
    py::array_t<Number> array({rows, std::size_t(3)});
    Number* const place = array.mutable_data();
    {
        py::gil_scoped_release const release;
        fill(place);
    }
    array.attr("setflags")("write"_a = false);
    return array;
}

py::array verticesOf(Part& part)
{
    MeshKernel const& kernel = kernelOf(part);
    if (!part.vertices)
        part.vertices = arrayOf<float>(kernel.readMesh()->vertices.size(),
                                       [&](float* place) { fillVertices(kernel, place); });
    return *part.vertices;
}

py::array facesOf(Part& part)
{
    MeshKernel const& kernel = kernelOf(part);
    if (!part.faces)
        part.faces =
            arrayOf<std::uint32_t>(kernel.readMesh()->triangles.size(),
                                   [&](std::uint32_t* place) { fillFaces(kernel, place); });
    return *part.faces;
}

/// Reads nothing of Python's, so that it can run without the interpreter's lock.
std::vector<Input> inputsOf(py::list const& given)
{
    std::vector<Input> inputs;
    for (py::handle const each : given)
        if (!py::isinstance<Part>(each))
            inputs.emplace_back(each.cast<std::string>());
        else if (StoredPart const& part = each.cast<Part&>().stored; part.kernel)
            inputs.emplace_back(part);
        else
            inputs.emplace_back(part.file);
    return inputs;
}

py::list partsOf(std::vector<StoredPart> const& stored)
{
    py::list parts;
    for (StoredPart const& part : stored)
        parts.append(Part{part, {}, {}});
    return parts;
}

py::dict runSubCommand(std::vector<std::string> words, py::list const& inputs, bool wantsFiles,
                       py::object const& progress)
{
    auto const outcome = std::make_shared<CommandOutcome>();
    auto const job = CommandThread::instance().start(
        [outcome, words = std::move(words), given = inputsOf(inputs),
         wantsFiles](CommandJob& self) { *outcome = runCommand(words, given, wantsFiles, self); });
    await(*job, progress);
    py::list pieces;
    for (std::vector<StoredPart> const& part : outcome->pieces)
        pieces.append(partsOf(part));
    return py::dict("status"_a = outcome->status, "complaints"_a = outcome->complaints,
                    "remarks"_a = outcome->remarks, "pieces"_a = pieces,
                    "report"_a = outcome->report);
}

std::string writePart(Part const& part, std::string file, std::string format, bool force,
                      py::object const& progress)
{
    kernelOf(part);
    auto const complaint = std::make_shared<std::string>();
    auto const job = CommandThread::instance().start(
        [=, stored = part.stored, file = std::move(file), format = std::move(format)](
            CommandJob& self) { *complaint = writeFile(stored, file, format, force, self); });
    await(*job, progress);
    return *complaint;
}

}  // namespace

PYBIND11_MODULE(_native, module)
{
    module.doc() = "The compiled half of orbe.";
    py::class_<Part>(module, "Part")
        .def(py::init(&makePart), "vertices"_a, "faces"_a, "name"_a)
        .def_property_readonly("name", [](Part const& part) { return part.stored.name; })
        .def_property_readonly("file", [](Part const& part) { return part.stored.file; })
        .def_property_readonly("vertices", &verticesOf)
        .def_property_readonly("faces", &facesOf);
    module.def("run", &runSubCommand, "words"_a, "inputs"_a, "wants_files"_a, "progress"_a);
    module.def("write", &writePart, "part"_a, "file"_a, "format"_a, "force"_a, "progress"_a);
    module.def("describe_commands", &describeCommands);
    // Before the interpreter and what the libraries hold go.
    py::module_::import("atexit").attr("register")(py::cpp_function([] {
        py::gil_scoped_release const release;
        CommandThread::instance().stop();
    }));
}
